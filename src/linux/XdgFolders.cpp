#include "linux/XdgFolders.h"

#include <pwd.h>
#include <unistd.h>

#include <cstdlib>

#include "base/Lines.h"
#include "base/Text.h"
#include "files/FileCalls.h"

namespace brenwick {
namespace {

// The desktop's rule: a path that is not absolute counts as missing.
std::optional<std::string> FolderInEnvironment(const char* name) {
  const char* const value = std::getenv(name);
  if (value == nullptr || value[0] != '/') return {};
  return value;
}

// The text of the shell word in double quotes that the line starts with.
std::optional<std::string> Unquoted(std::string_view line) {
  if (!line.starts_with('"')) return {};
  std::string text;
  for (std::size_t i = 1; i < line.size() && line[i] != '"'; ++i) {
    if (line[i] == '\\' && i + 1 < line.size()) ++i;
    text += line[i];
  }
  return text;
}

std::string WithoutSlashAtEnd(std::string path) {
  while (path.size() > 1 && path.ends_with('/')) path.pop_back();
  return path;
}

// The folder in the environment, or the one in the home folder.
std::string FolderOrIn(const char* name, const std::string& in_home) {
  if (const auto folder = FolderInEnvironment(name)) return WithoutSlashAtEnd(*folder);
  return HomeFolder() + in_home;
}

std::string ContentOf(const std::string& path) {
  OpenFile file(SystemCalls(), path, OpenMode::Read);
  std::string content;
  if (file.IsOpen() && file.ReadAll(content) != 0) content.clear();
  return content;
}

}  // namespace

std::string HomeFolder() {
  if (const auto home = FolderInEnvironment("HOME")) return WithoutSlashAtEnd(*home);
  const passwd* const user = ::getpwuid(::getuid());
  return user != nullptr && user->pw_dir != nullptr ? WithoutSlashAtEnd(user->pw_dir) : "/";
}

std::string XdgConfigHome() { return FolderOrIn("XDG_CONFIG_HOME", "/.config"); }

std::string DefaultStoreFile() { return XdgConfigHome() + "/brenwick/store.ini"; }

std::string XdgStateHome() { return FolderOrIn("XDG_STATE_HOME", "/.local/state"); }

std::string XdgDocumentsFolder() {
  if (const auto folder = FolderInEnvironment("XDG_DOCUMENTS_DIR")) {
    return WithoutSlashAtEnd(*folder);
  }
  const std::string home = HomeFolder();
  return DocumentsFolderIn(ContentOf(XdgConfigHome() + "/user-dirs.dirs"), home)
      .value_or(home + "/Documents");
}

std::optional<std::string> DocumentsFolderIn(std::string_view user_dirs, const std::string& home) {
  constexpr std::string_view kName = "XDG_DOCUMENTS_DIR=";
  constexpr std::string_view kHome = "$HOME";
  std::optional<std::string> folder;
  for (std::string_view line : Lines(user_dirs)) {
    line = Trimmed(line);
    if (!line.starts_with(kName)) continue;
    const std::optional<std::string> path = Unquoted(line.substr(kName.size()));
    if (!path) continue;
    // The shell reads the file, so the last line counts; and it knows no relative paths.
    if (path->starts_with("/")) folder = WithoutSlashAtEnd(*path);
    if (*path == kHome || path->starts_with("$HOME/")) {
      folder = WithoutSlashAtEnd(home + path->substr(kHome.size()));
    }
  }
  return folder;
}

}  // namespace brenwick

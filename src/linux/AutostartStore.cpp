#include "linux/AutostartStore.h"

#include <filesystem>
#include <fstream>
#include <iterator>
#include <system_error>

#include "base/Lines.h"
#include "base/ProgramState.h"
#include "base/Text.h"
#include "files/AtomicFile.h"
#include "settings/SettingsKeys.h"

namespace brenwick {
namespace {

namespace fs = std::filesystem;

bool IsStartEntry(const std::string& key, const std::string& name) {
  return LowerCase(key) == LowerCase(kRunKey) && LowerCase(name) == LowerCase(kTitle);
}

// A file name as an Exec line wants it: in quotes, with its special characters escaped once for the
// quotes and once for the file's own rules, and "%" doubled.
std::string QuotedForExec(const std::string& program) {
  std::string quoted = "\"";
  for (const char byte : program) {
    if (byte == '"' || byte == '`' || byte == '$') quoted += "\\\\";
    if (byte == '\\') quoted += "\\\\\\";
    if (byte == '%') quoted += '%';
    quoted += byte;
  }
  return quoted + "\"";
}

std::string EntryContent(const std::string& program) {
  return std::string("[Desktop Entry]\nType=Application\nName=") + kTitle +
         "\nComment=Reads your instant messages aloud\nExec=" + QuotedForExec(program) +
         "\nIcon=org.brenwick.Brenwick\nTerminal=false\n";
}

}  // namespace

// True where the desktop starts the program that the entry names: the user may have switched the
// entry off by the desktop's own means, which delete the file or put a line into it.
bool AutostartStore::EntryCounts() const {
  std::ifstream file(entry_, std::ios::binary);
  if (!file) return false;
  const std::string content{std::istreambuf_iterator<char>(file), {}};
  for (const std::string_view line : Lines(content)) {
    const std::string lower = LowerCase(line);
    if (lower == "hidden=true" || lower == "x-gnome-autostart-enabled=false") return false;
  }
  return true;
}

std::optional<RegistryValue> AutostartStore::ReadValue(const std::string& key,
                                                       const std::string& name) {
  if (IsStartEntry(key, name) && !EntryCounts()) return std::nullopt;
  return store_.ReadValue(key, name);
}

bool AutostartStore::WriteValue(const std::string& key, const std::string& name,
                                const RegistryValue& value) {
  // An entry that already does what it should is left alone: the user may have edited it.
  const bool entry = IsStartEntry(key, name);
  if (entry && ReadValue(key, name) != value && !WriteEntry()) return false;
  return store_.WriteValue(key, name, value);
}

bool AutostartStore::WriteEntry() {
  std::error_code failed;
  fs::create_directories(fs::path(entry_).parent_path(), failed);
  return !failed && AtomicFile(entry_).Replace(EntryContent(program_)) == 0;
}

bool AutostartStore::DeleteValue(const std::string& key, const std::string& name) {
  if (IsStartEntry(key, name)) {
    std::error_code failed;
    fs::remove(entry_, failed);
    if (failed) return false;
  }
  return store_.DeleteValue(key, name);
}

}  // namespace brenwick

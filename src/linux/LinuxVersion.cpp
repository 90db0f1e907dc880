#include "linux/LinuxVersion.h"

#include <sys/utsname.h>

#include <fstream>
#include <iterator>

#include "base/Text.h"

namespace brenwick {
namespace {

// The value as a shell would read it: without its quotes, and without the backslashes that guard a
// character inside double quotes.
std::string Unquoted(std::string_view value) {
  const bool quoted = value.size() >= 2 && value.front() == value.back() &&
                      (value.front() == '"' || value.front() == '\'');
  if (!quoted) return std::string(value);
  const bool escapes = value.front() == '"';
  std::string text;
  for (std::size_t i = 1; i + 1 < value.size(); ++i) {
    if (escapes && value[i] == '\\' && i + 2 < value.size()) ++i;
    text += value[i];
  }
  return text;
}

std::string ValueOf(std::string_view osRelease, std::string_view name) {
  while (!osRelease.empty()) {
    std::string_view line = osRelease.substr(0, osRelease.find('\n'));
    osRelease.remove_prefix(line.size() < osRelease.size() ? line.size() + 1 : line.size());
    if (line.ends_with('\r')) line.remove_suffix(1);
    if (!line.starts_with(name) || !line.substr(name.size()).starts_with('=')) continue;
    return Unquoted(Trimmed(line.substr(name.size() + 1)));
  }
  return {};
}

// The administrator's file wins over the distribution's, as it does for the system's own tools.
std::string OsRelease() {
  for (const char* path : {"/etc/os-release", "/usr/lib/os-release"}) {
    std::ifstream file(path, std::ios::binary);
    if (file) return {std::istreambuf_iterator<char>(file), {}};
  }
  return {};
}

}  // namespace

std::string DescribeDistribution(std::string_view osRelease) {
  for (const char* name : {"PRETTY_NAME", "NAME"}) {
    const std::string value = ValueOf(osRelease, name);
    if (!value.empty()) return Repaired(value) + "*";
  }
  return "Linux*";
}

std::pair<std::string, std::string> LinuxVersion() {
  utsname kernel{};
  const bool known = uname(&kernel) == 0;
  return {DescribeDistribution(OsRelease()), "Build: " + (known ? Repaired(kernel.release) : "")};
}

}  // namespace brenwick

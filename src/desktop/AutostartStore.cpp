#include "desktop/AutostartStore.h"

#include <filesystem>
#include <system_error>

#include "base/ProgramState.h"
#include "base/Text.h"
#include "desktop/AtomicFile.h"
#include "settings/SettingsTable.h"

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
         "\nIcon=brenwick\nTerminal=false\n";
}

}  // namespace

std::optional<RegistryValue> AutostartStore::ReadValue(const std::string& key,
                                                       const std::string& name) {
  std::error_code ignored;
  if (IsStartEntry(key, name) && !fs::exists(entry_, ignored)) return std::nullopt;
  return store_.ReadValue(key, name);
}

bool AutostartStore::WriteValue(const std::string& key, const std::string& name,
                                const RegistryValue& value) {
  if (IsStartEntry(key, name) && !WriteEntry()) return false;
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

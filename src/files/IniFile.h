// One look at a file of the settings store.
#pragma once

#include <optional>
#include <string>

#include "files/FileCalls.h"
#include "files/FileIdentity.h"
#include "files/IniData.h"

namespace brenwick {

struct IniLook {
  FileIdentity identity;
  int error = 0;  // the errno for which it cannot be read
  std::string bytes;
  std::optional<IniData> data;  // nothing where it cannot be read or is damaged
};

// A missing file is empty data. An empty file is damaged where its backup holds anything: no store
// writes an empty file, so the machine stopped before another program's copy was on the disk.
IniLook LookAtIni(FileCalls& calls, const std::string& path);

// The data of a file's backup; nothing where it cannot be read or is damaged.
std::optional<IniData> BackupOfIni(FileCalls& calls, const std::string& path);

}  // namespace brenwick

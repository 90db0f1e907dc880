// One look at a file of the settings store.
#pragma once

#include <sys/types.h>

#include <cstdint>
#include <optional>
#include <string>

#include "files/FileCalls.h"
#include "files/IniData.h"

namespace brenwick {

// By this a file is known again; all zero where there is none.
struct FileIdentity {
  dev_t device = 0;
  ino_t number = 0;
  off_t size = 0;
  std::int64_t seconds = 0;
  std::int64_t nanoseconds = 0;
  bool operator==(const FileIdentity&) const = default;
};

FileIdentity IdentityOf(const std::string& path);

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

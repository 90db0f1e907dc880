#include "files/IniFile.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <cerrno>

#include "files/IniFormat.h"

namespace brenwick {
namespace {

FileIdentity From(const struct stat& status) {
  return {status.st_dev, status.st_ino, status.st_size, status.st_mtim.tv_sec,
          status.st_mtim.tv_nsec};
}

IniLook LookAt(FileCalls& calls, const std::string& path) {
  IniLook look;
  OpenFile file(calls, path, O_RDONLY);
  if (!file.IsOpen()) {
    look.error = errno == ENOENT ? 0 : errno;
    if (look.error == 0) look.data.emplace();
    return look;
  }
  struct stat status {};
  if (::fstat(file.Descriptor(), &status) == 0) look.identity = From(status);
  look.error = file.ReadAll(look.bytes);
  if (look.error == 0) look.data = FromIni(look.bytes);
  return look;
}

}  // namespace

FileIdentity IdentityOf(const std::string& path) {
  struct stat status {};
  return ::stat(path.c_str(), &status) == 0 ? From(status) : FileIdentity{};
}

IniLook LookAtIni(FileCalls& calls, const std::string& path) {
  IniLook look = LookAt(calls, path);
  const bool empty = look.error == 0 && look.identity != FileIdentity{} && look.bytes.empty();
  if (empty && BackupOfIni(calls, path).value_or(IniData()) != IniData()) look.data.reset();
  return look;
}

std::optional<IniData> BackupOfIni(FileCalls& calls, const std::string& path) {
  return LookAt(calls, path + ".bak").data;
}

}  // namespace brenwick

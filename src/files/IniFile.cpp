#include "files/IniFile.h"

#include <cerrno>

#include "files/IniFormat.h"

namespace brenwick {
namespace {

IniLook LookAt(FileCalls& calls, const std::string& path) {
  IniLook look;
  OpenFile file(calls, path, OpenMode::Read);
  if (!file.IsOpen()) {
    look.error = errno == ENOENT ? 0 : errno;
    if (look.error == 0) look.data.emplace();
    return look;
  }
  look.identity = IdentityOf(file.Descriptor());
  look.error = file.ReadAll(look.bytes);
  if (look.error == 0) look.data = FromIni(look.bytes);
  return look;
}

}  // namespace

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

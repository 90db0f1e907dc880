#include <sys/stat.h>

#include "files/FileIdentity.h"

namespace brenwick {
namespace {

FileIdentity From(const struct stat& status) {
  return {status.st_dev, status.st_ino, status.st_size, status.st_mtim.tv_sec,
          status.st_mtim.tv_nsec};
}

}  // namespace

FileIdentity IdentityOf(const std::string& path) {
  struct stat status {};
  return ::stat(path.c_str(), &status) == 0 ? From(status) : FileIdentity{};
}

FileIdentity IdentityOf(int descriptor) {
  struct stat status {};
  return ::fstat(descriptor, &status) == 0 ? From(status) : FileIdentity{};
}

}  // namespace brenwick

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "files/FileCalls.h"

namespace brenwick {
namespace {

int Flags(OpenMode mode) {
  switch (mode) {
    case OpenMode::Read:
      return O_RDONLY;
    case OpenMode::CreateNew:
      return O_WRONLY | O_CREAT | O_EXCL;
    case OpenMode::Append:
      return O_WRONLY | O_APPEND | O_CREAT;
    case OpenMode::Lock:
      return O_RDWR | O_CREAT;
    case OpenMode::Folder:
      return O_RDONLY | O_DIRECTORY;
  }
  return O_RDONLY;
}

}  // namespace

int FileCalls::Open(const std::string& path, OpenMode mode) {
  return ::open(path.c_str(), Flags(mode) | O_CLOEXEC, 0600);
}

std::ptrdiff_t FileCalls::Read(int descriptor, void* bytes, std::size_t count) {
  return ::read(descriptor, bytes, count);
}

std::ptrdiff_t FileCalls::Write(int descriptor, const void* bytes, std::size_t count) {
  return ::write(descriptor, bytes, count);
}

int FileCalls::Fchmod(int descriptor) { return ::fchmod(descriptor, 0600); }
int FileCalls::Fsync(int descriptor) { return ::fsync(descriptor); }
int FileCalls::Close(int descriptor) { return ::close(descriptor); }

int FileCalls::Link(const std::string& path, const std::string& new_path) {
  return ::link(path.c_str(), new_path.c_str());
}

int FileCalls::Rename(const std::string& path, const std::string& new_path) {
  return ::rename(path.c_str(), new_path.c_str());
}

int FileCalls::Unlink(const std::string& path) { return ::unlink(path.c_str()); }
int FileCalls::Mkdir(const std::string& path) { return ::mkdir(path.c_str(), 0700); }

}  // namespace brenwick

#include "files/FileCalls.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

namespace brenwick {
namespace {

template <typename Call>
auto Uninterrupted(const Call& call) {
  auto result = call();
  while (result == -1 && errno == EINTR) result = call();
  return result;
}

}  // namespace

int FileCalls::Open(const std::string& path, int flags, mode_t mode) {
  return ::open(path.c_str(), flags, mode);
}

ssize_t FileCalls::Read(int descriptor, void* bytes, std::size_t count) {
  return ::read(descriptor, bytes, count);
}

ssize_t FileCalls::Write(int descriptor, const void* bytes, std::size_t count) {
  return ::write(descriptor, bytes, count);
}

int FileCalls::Fchmod(int descriptor, mode_t mode) { return ::fchmod(descriptor, mode); }
int FileCalls::Fsync(int descriptor) { return ::fsync(descriptor); }
int FileCalls::Close(int descriptor) { return ::close(descriptor); }

int FileCalls::Link(const std::string& path, const std::string& new_path) {
  return ::link(path.c_str(), new_path.c_str());
}

int FileCalls::Rename(const std::string& path, const std::string& new_path) {
  return ::rename(path.c_str(), new_path.c_str());
}

int FileCalls::Unlink(const std::string& path) { return ::unlink(path.c_str()); }
int FileCalls::Mkdir(const std::string& path, mode_t mode) { return ::mkdir(path.c_str(), mode); }

FileCalls& SystemCalls() {
  static FileCalls calls;
  return calls;
}

OpenFile::OpenFile(FileCalls& calls, const std::string& path, int flags, mode_t mode)
    : calls_(calls),
      descriptor_(Uninterrupted([&] { return calls.Open(path, flags | O_CLOEXEC, mode); })) {}

int OpenFile::ReadAll(std::string& bytes) {
  char buffer[16 * 1024];
  for (;;) {
    const ssize_t count =
        Uninterrupted([&] { return calls_.Read(descriptor_, buffer, sizeof buffer); });
    if (count < 0) return errno;
    if (count == 0) return 0;
    bytes.append(buffer, static_cast<std::size_t>(count));
  }
}

int OpenFile::WriteAll(std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t count =
        Uninterrupted([&] { return calls_.Write(descriptor_, bytes.data(), bytes.size()); });
    if (count < 0) return errno;
    // No progress and no reason: going on would never end.
    if (count == 0) return EIO;
    bytes.remove_prefix(static_cast<std::size_t>(count));
  }
  return 0;
}

int OpenFile::MakePrivate() {
  return Uninterrupted([&] { return calls_.Fchmod(descriptor_, 0600); }) == 0 ? 0 : errno;
}

int OpenFile::Flush() {
  return Uninterrupted([&] { return calls_.Fsync(descriptor_); }) == 0 ? 0 : errno;
}

int OpenFile::Close() {
  if (!IsOpen()) return 0;
  const int result = calls_.Close(descriptor_);
  descriptor_ = -1;
  // An interrupted close has closed the descriptor all the same.
  return result == 0 || errno == EINTR ? 0 : errno;
}

std::string FolderOf(const std::string& path) {
  const std::size_t slash = path.find_last_of('/');
  if (slash == std::string::npos) return ".";
  return slash == 0 ? "/" : path.substr(0, slash);
}

int MakeFolders(FileCalls& calls, const std::string& path) {
  if (calls.Mkdir(path, 0700) == 0) return 0;
  if (errno == ENOENT && FolderOf(path) != path) {
    if (const int failure = MakeFolders(calls, FolderOf(path))) return failure;
    if (calls.Mkdir(path, 0700) == 0) return 0;
  }
  const int failure = errno;
  struct stat status {};
  const bool folder = ::stat(path.c_str(), &status) == 0 && S_ISDIR(status.st_mode);
  return folder ? 0 : failure;
}

}  // namespace brenwick

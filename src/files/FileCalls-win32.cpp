#include <windows.h>
// The C library's header comes behind the system's, whose types it needs.
#include <io.h>

#include <algorithm>
#include <cerrno>
#include <system_error>

#include "files/FileCalls.h"

namespace brenwick {
namespace {

// The most bytes that one call of the C library takes.
constexpr std::size_t kMostBytes = 1 << 30;

int Done(BOOL done) {
  if (done != 0) return 0;
  const std::error_code error(static_cast<int>(GetLastError()), std::system_category());
  errno = error.default_error_condition().value();
  return -1;
}

DWORD Access(OpenMode mode) {
  switch (mode) {
    case OpenMode::CreateNew:
      return GENERIC_WRITE;
    case OpenMode::Append:
      // Without FILE_WRITE_DATA, every write goes to the end.
      return FILE_APPEND_DATA | SYNCHRONIZE;
    case OpenMode::Lock:
    case OpenMode::Folder:
      return GENERIC_READ | GENERIC_WRITE;
    case OpenMode::Read:
      break;
  }
  return GENERIC_READ;
}

DWORD Disposition(OpenMode mode) {
  switch (mode) {
    case OpenMode::CreateNew:
      return CREATE_NEW;
    case OpenMode::Append:
    case OpenMode::Lock:
      return OPEN_ALWAYS;
    case OpenMode::Read:
    case OpenMode::Folder:
      break;
  }
  return OPEN_EXISTING;
}

}  // namespace

// A file in the user's profile is the user's alone: what is made there inherits that. Like on
// POSIX, an open file can be renamed and deleted.
int FileCalls::Open(const std::string& path, OpenMode mode) {
  constexpr DWORD kShare = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
  const DWORD flags = mode == OpenMode::Folder ? FILE_FLAG_BACKUP_SEMANTICS : FILE_ATTRIBUTE_NORMAL;
  const HANDLE handle = CreateFileW(NativePath(path).c_str(), Access(mode), kShare, nullptr,
                                    Disposition(mode), flags, nullptr);
  if (handle == INVALID_HANDLE_VALUE) return Done(FALSE);
  return _open_osfhandle(reinterpret_cast<intptr_t>(handle), 0);
}

std::ptrdiff_t FileCalls::Read(int descriptor, void* bytes, std::size_t count) {
  return _read(descriptor, bytes, static_cast<unsigned>(std::min(count, kMostBytes)));
}

std::ptrdiff_t FileCalls::Write(int descriptor, const void* bytes, std::size_t count) {
  return _write(descriptor, bytes, static_cast<unsigned>(std::min(count, kMostBytes)));
}

int FileCalls::Fchmod(int /*descriptor*/) { return 0; }

int FileCalls::Fsync(int descriptor) {
  return Done(FlushFileBuffers(reinterpret_cast<HANDLE>(_get_osfhandle(descriptor))));
}

int FileCalls::Close(int descriptor) { return _close(descriptor); }

int FileCalls::Link(const std::string& path, const std::string& new_path) {
  return Done(CreateHardLinkW(NativePath(new_path).c_str(), NativePath(path).c_str(), nullptr));
}

int FileCalls::Rename(const std::string& path, const std::string& new_path) {
  return Done(MoveFileExW(NativePath(path).c_str(), NativePath(new_path).c_str(),
                          MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH));
}

int FileCalls::Unlink(const std::string& path) {
  return Done(DeleteFileW(NativePath(path).c_str()));
}
int FileCalls::Mkdir(const std::string& path) {
  return Done(CreateDirectoryW(NativePath(path).c_str(), nullptr));
}

}  // namespace brenwick

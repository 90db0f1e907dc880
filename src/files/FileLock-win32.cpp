#include <windows.h>
// The C library's header comes behind the system's, whose types it needs.
#include <io.h>

#include "files/FileLock.h"

namespace brenwick {
namespace {

constexpr std::chrono::milliseconds kLookAgain{10};

}  // namespace

FileLock::FileLock(FileCalls& calls, const std::string& path, std::chrono::milliseconds patience)
    : file_(calls, path, OpenMode::Lock), state_(Lock(patience)) {}

// The C library's files cannot be waited for, so the lock is asked for again and again.
FileLock::State FileLock::Lock(std::chrono::milliseconds patience) {
  if (!file_.IsOpen()) return State::Failed;
  const auto handle = reinterpret_cast<HANDLE>(_get_osfhandle(file_.Descriptor()));
  const auto end = std::chrono::steady_clock::now() + patience;
  for (;;) {
    OVERLAPPED place{};
    constexpr DWORD kHow = LOCKFILE_EXCLUSIVE_LOCK | LOCKFILE_FAIL_IMMEDIATELY;
    if (LockFileEx(handle, kHow, 0, 1, 0, &place) != 0) return State::Held;
    if (GetLastError() != ERROR_LOCK_VIOLATION) return State::Failed;
    if (std::chrono::steady_clock::now() >= end) return State::Busy;
    Sleep(static_cast<DWORD>(kLookAgain.count()));
  }
}

}  // namespace brenwick

#include <windows.h>
// The C library's header comes behind the system's, whose types it needs.
#include <io.h>

#include "files/FileCalls.h"
#include "files/FileIdentity.h"

namespace brenwick {
namespace {

std::uint64_t Joined(DWORD high, DWORD low) {
  return (static_cast<std::uint64_t>(high) << 32U) | low;
}

FileIdentity IdentityOfHandle(HANDLE handle) {
  BY_HANDLE_FILE_INFORMATION file{};
  if (GetFileInformationByHandle(handle, &file) == 0) return {};
  // The system counts in steps of 100 nanoseconds.
  constexpr std::uint64_t kStepsASecond = 10'000'000;
  const std::uint64_t written =
      Joined(file.ftLastWriteTime.dwHighDateTime, file.ftLastWriteTime.dwLowDateTime);
  return {file.dwVolumeSerialNumber, Joined(file.nFileIndexHigh, file.nFileIndexLow),
          static_cast<std::int64_t>(Joined(file.nFileSizeHigh, file.nFileSizeLow)),
          static_cast<std::int64_t>(written / kStepsASecond),
          static_cast<std::int64_t>(written % kStepsASecond * 100)};
}

}  // namespace

FileIdentity IdentityOf(const std::string& path) {
  const HANDLE handle = CreateFileW(NativePath(path).c_str(), FILE_READ_ATTRIBUTES,
                                    FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                    OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr);
  if (handle == INVALID_HANDLE_VALUE) return {};
  const FileIdentity identity = IdentityOfHandle(handle);
  CloseHandle(handle);
  return identity;
}

FileIdentity IdentityOf(int descriptor) {
  return IdentityOfHandle(reinterpret_cast<HANDLE>(_get_osfhandle(descriptor)));
}

}  // namespace brenwick

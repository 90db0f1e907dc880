#include <windows.h>

#include "files/ProcessId.h"

namespace brenwick {

ProcessId OwnProcessId() { return static_cast<ProcessId>(GetCurrentProcessId()); }

bool ProcessExists(ProcessId process) {
  const HANDLE handle = OpenProcess(SYNCHRONIZE, FALSE, static_cast<DWORD>(process));
  if (handle == nullptr) return GetLastError() != ERROR_INVALID_PARAMETER;
  const bool runs = WaitForSingleObject(handle, 0) == WAIT_TIMEOUT;
  CloseHandle(handle);
  return runs;
}

}  // namespace brenwick

#include <windows.h>

#include <algorithm>
#include <system_error>

#include "voice/StopToken.h"

namespace brenwick {
namespace {

// It stays set until it is reset.
HANDLE NewEvent() {
  const HANDLE event = CreateEventW(nullptr, TRUE, FALSE, nullptr);
  if (event != nullptr) return event;
  throw std::system_error(static_cast<int>(GetLastError()), std::system_category(), "CreateEvent");
}

HANDLE AsEvent(std::intptr_t handle) { return reinterpret_cast<HANDLE>(handle); }

}  // namespace

StopToken::StopToken() : handle_(reinterpret_cast<std::intptr_t>(NewEvent())) {}

StopToken::~StopToken() { CloseHandle(AsEvent(handle_)); }

void StopToken::RequestStop() {
  requested_ = true;
  SetEvent(AsEvent(handle_));
}

void StopToken::Reset() {
  ResetEvent(AsEvent(handle_));
  requested_ = false;
}

bool StopToken::Await(std::chrono::milliseconds time) const {
  // The greatest number means a wait without an end.
  constexpr std::chrono::milliseconds kLongest{INFINITE - 1};
  const auto limited = std::clamp(time, std::chrono::milliseconds(0), kLongest);
  WaitForSingleObject(AsEvent(handle_), static_cast<DWORD>(limited.count()));
  return requested_;
}

}  // namespace brenwick

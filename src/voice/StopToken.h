// Tells a working or waiting thread to stop.
#pragma once

#include <atomic>
#include <chrono>
#include <cstdint>

namespace brenwick {

// Any thread may request the stop, reset it and look at it, but Reset must not run beside
// RequestStop: it could leave a stop that is requested and ends no wait. No call throws but the
// constructor, which raises std::system_error where the system has nothing to wait for any more.
class StopToken {
 public:
  StopToken();
  ~StopToken();
  StopToken(const StopToken&) = delete;
  StopToken& operator=(const StopToken&) = delete;

  void RequestStop();
  // Takes the request back, so that the next piece of work can begin.
  void Reset();
  bool StopRequested() const { return requested_; }

  // Waits until the stop is requested, but no longer than that; whether it is requested.
  bool Await(std::chrono::milliseconds time) const;

  // For a thread that waits for something else as well: on POSIX a descriptor that can be read from
  // while the stop is requested, on Windows an event that is set then.
  std::intptr_t SystemHandle() const { return handle_; }

 private:
  std::atomic<bool> requested_ = false;
  std::intptr_t handle_;
};

}  // namespace brenwick

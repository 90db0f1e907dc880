// The loop that the world owns.
#pragma once

#include <chrono>

namespace brenwick {

class EventLoop {
 public:
  EventLoop() = default;
  EventLoop(const EventLoop&) = delete;
  EventLoop& operator=(const EventLoop&) = delete;
  virtual ~EventLoop() = default;

  // Lets the events that are pending now be handled, and returns. Handlers may run inside.
  virtual void DoEvents() = 0;
  // Waits without handling events.
  virtual void Sleep(std::chrono::milliseconds time) = 0;
};

}  // namespace brenwick

// The event loop, which the world owns.
#pragma once

#include <chrono>

namespace brenwick {

// The program calls each operation on its own thread, at the start and inside handlers.
class EventLoop {
 public:
  EventLoop() = default;
  EventLoop(const EventLoop&) = delete;
  EventLoop& operator=(const EventLoop&) = delete;
  virtual ~EventLoop() = default;

  // Lets the events that are pending now be handled, and returns without waiting for more. Handlers
  // run inside. Throws ProgramEnd where a handler has ended the program, and nothing else.
  virtual void DoEvents() = 0;
  // Waits without handling events. Throws nothing.
  virtual void Sleep(std::chrono::milliseconds time) = 0;
};

}  // namespace brenwick

// Calls a handler when a descriptor becomes readable, or when a time is over; the world's event
// loop stands behind it.
#pragma once

#include <chrono>
#include <functional>

namespace brenwick {

// There is one handler at a time. Each operation is called on the program's thread, also from
// inside the handler, and throws nothing. The handler may end the program by throwing ProgramEnd.
class ReadinessWatch {
 public:
  ReadinessWatch() = default;
  ReadinessWatch(const ReadinessWatch&) = delete;
  ReadinessWatch& operator=(const ReadinessWatch&) = delete;
  virtual ~ReadinessWatch() = default;

  // Calls the handler on the program's thread while the descriptor is readable, and once in any
  // case, but not before this returns. The descriptor stays open until another operation is called.
  virtual void Start(int descriptor, std::function<void()> readable) = 0;
  // Calls the handler once more, after the events that are waiting now.
  virtual void Again() = 0;
  // Watches no descriptor any more, and calls this handler once when the time is over.
  virtual void Later(std::chrono::milliseconds time, std::function<void()> over) = 0;
  // Calls no handler any more. One may be running.
  virtual void Stop() = 0;
};

}  // namespace brenwick

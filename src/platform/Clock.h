// The time of day, and how the user's system writes it.
#pragma once

#include <chrono>
#include <string>

namespace brenwick {

// A moment in the user's own time zone.
using LocalTime = std::chrono::local_time<std::chrono::milliseconds>;

// The program calls each operation on its own thread. Each answers at once and throws nothing.
class Clock {
 public:
  Clock() = default;
  Clock(const Clock&) = delete;
  Clock& operator=(const Clock&) = delete;
  virtual ~Clock() = default;

  virtual LocalTime Now() = 0;
  // The moment's date in the system's short date format, and its time in the system's time format,
  // in UTF-8.
  virtual std::string DateText(LocalTime time) = 0;
  virtual std::string TimeText(LocalTime time) = 0;
};

}  // namespace brenwick

// A clock that stands still.
#pragma once

#include <chrono>
#include <string>

#include "platform/Clock.h"

namespace brenwick {

class TestClock : public Clock {
 public:
  LocalTime now = std::chrono::local_days(std::chrono::year_month_day(
      std::chrono::year(2004), std::chrono::month(1), std::chrono::day(10)));

  LocalTime Now() override { return now; }
  std::string DateText(LocalTime) override { return "2004-01-10"; }
  std::string TimeText(LocalTime) override { return "00:00:00"; }
};

}  // namespace brenwick

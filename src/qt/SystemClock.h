// The time of day, written as the user's locale has it.
#pragma once

#include "platform/Clock.h"

namespace brenwick {

class SystemClock : public Clock {
 public:
  LocalTime Now() override;
  std::string DateText(LocalTime time) override;
  std::string TimeText(LocalTime time) override;
};

}  // namespace brenwick

// A timer. The world that owns the loop runs it: while it is enabled, Tick is called each time the
// interval has passed.
#pragma once

#include <functional>
#include <string>
#include <utility>

#include "controls/Control.h"

namespace brenwick {

class Timer : public Control {
 public:
  Timer(ControlList& window, std::string name, int interval, bool enabled)
      : Control(Place{window, kNoPage}, std::move(name)), interval_(interval) {
    SetEnabled(enabled);
  }

  int Interval() const { return interval_; }  // milliseconds

  std::function<void()> Tick;

 private:
  int interval_;
};

}  // namespace brenwick

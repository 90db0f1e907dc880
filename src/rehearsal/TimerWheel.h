// Runs the program's timers on a clock that moves only when it is told to.
#pragma once

#include <chrono>
#include <functional>
#include <optional>
#include <vector>

#include "base/Observers.h"
#include "controls/Timer.h"
#include "forms/frmMain.h"
#include "rehearsal/ScriptedWorld.h"

namespace brenwick {

class TimerWheel {
 public:
  using Time = std::chrono::milliseconds;

  // pass: called with the time that goes by before each move of the clock.
  TimerWheel(ScriptedClock& clock, std::function<void(Time)> pass)
      : clock_(clock), pass_(std::move(pass)) {}

  // Takes over the timers of a form, all of them stopped until Arm.
  void Drive(frmMain& form);
  // Starts the timers that are enabled.
  void Arm();
  void Stop();

  // Moves the clock on; the timers that come due tick through `tick`, in the order in which they
  // come due. The clock arrives even when the program ends on the way.
  void Wait(Time time, const std::function<void(Timer&)>& tick);

 private:
  struct Entry {
    Timer* timer = nullptr;
    std::optional<Time> due;
  };

  void Follow(std::size_t entry);
  Entry* NextDue(Time until);
  void MoveTo(Time time);

  ScriptedClock& clock_;
  std::function<void(Time)> pass_;
  bool armed_ = false;
  Time elapsed_{0};
  std::vector<Entry> entries_;
  std::vector<Subscription> subscriptions_;
};

}  // namespace brenwick

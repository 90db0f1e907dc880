// Makes the form's timers tick.
#pragma once

#include <QTimer>
#include <list>

#include "forms/frmMain.h"
#include "qt/views/Views.h"

namespace brenwick {

class TimerDriver {
 public:
  TimerDriver(frmMain& form, Views& views);

  // Lets the timers tick from now on.
  void Arm();

 private:
  struct Driven {
    explicit Driven(Timer& driven) : timer(driven) {}
    Timer& timer;
    QTimer clock;
  };

  void Follow(Driven& driven) const;

  std::list<Driven> driven_;
  bool armed_ = false;
};

}  // namespace brenwick

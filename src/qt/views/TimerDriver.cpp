#include "qt/views/TimerDriver.h"

namespace brenwick {

TimerDriver::TimerDriver(frmMain& form, Views& views) {
  for (Control* control : form.Controls()) {
    auto* timer = dynamic_cast<Timer*>(control);
    if (timer == nullptr) continue;
    Driven& driven = driven_.emplace_back(*timer);
    driven.clock.setTimerType(Qt::CoarseTimer);
    views.Own(timer->Changed.Observe([this, &driven] { Follow(driven); }));
    QObject::connect(&driven.clock, &QTimer::timeout, &driven.clock, [&views, timer] {
      views.ForwardUserAction([timer] {
        if (timer->Tick) timer->Tick();
      });
    });
  }
}

void TimerDriver::Arm() {
  armed_ = true;
  for (Driven& driven : driven_) Follow(driven);
}

void TimerDriver::Follow(Driven& driven) const {
  if (!armed_ || !driven.timer.Enabled()) {
    driven.clock.stop();
  } else if (!driven.clock.isActive()) {
    driven.clock.start(driven.timer.Interval());
  }
}

}  // namespace brenwick

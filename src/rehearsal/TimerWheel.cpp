#include "rehearsal/TimerWheel.h"

namespace brenwick {

void TimerWheel::Drive(frmMain& form) {
  subscriptions_.clear();
  entries_.clear();
  armed_ = false;
  for (Control* control : form.Controls()) {
    if (auto* timer = dynamic_cast<Timer*>(control)) entries_.push_back({timer, std::nullopt});
  }
  for (std::size_t i = 0; i < entries_.size(); ++i) {
    subscriptions_.push_back(entries_[i].timer->Changed.Observe([this, i] { Follow(i); }));
  }
}

void TimerWheel::Arm() {
  armed_ = true;
  for (std::size_t i = 0; i < entries_.size(); ++i) Follow(i);
}

void TimerWheel::Stop() {
  armed_ = false;
  for (Entry& entry : entries_) entry.due.reset();
}

void TimerWheel::Follow(std::size_t entry) {
  Entry& followed = entries_[entry];
  if (!armed_ || !followed.timer->Enabled()) {
    followed.due.reset();
  } else if (!followed.due) {
    followed.due = elapsed_ + Time(followed.timer->Interval());
  }
}

void TimerWheel::Wait(Time time, const std::function<void(Timer&)>& tick) {
  const Time end = elapsed_ + time;
  while (Entry* next = NextDue(end)) {
    MoveTo(*next->due);
    next->due = elapsed_ + Time(next->timer->Interval());
    tick(*next->timer);
  }
  MoveTo(end);
}

TimerWheel::Entry* TimerWheel::NextDue(Time until) {
  Entry* next = nullptr;
  for (Entry& entry : entries_) {
    if (entry.due && *entry.due <= until && (next == nullptr || *entry.due < *next->due)) {
      next = &entry;
    }
  }
  return next;
}

void TimerWheel::MoveTo(Time time) {
  pass_(time - elapsed_);
  clock_.now += time - elapsed_;
  elapsed_ = time;
}

}  // namespace brenwick

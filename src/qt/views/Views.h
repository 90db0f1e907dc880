// The part that the views of all controls share.
#pragma once

#include <QWidget>
#include <functional>
#include <utility>
#include <vector>

#include "controls/Control.h"
#include "qt/EndOfProgram.h"

namespace brenwick {

class Views {
 public:
  explicit Views(EndOfProgram& end) : end_(end) {}

  // Makes the widget a view of the control: the widget bears the control's name, is enabled, shown
  // and focused as the control is, and `mirror` brings it up to date now and at each change.
  void Mirror(Control& control, QWidget& widget, std::function<void()> mirror);

  // Carries out what the user did, unless it is only an echo of UpdateQuietly.
  template <typename Action>
  void ForwardUserAction(Action action) {
    if (!UpdatingQuietly()) end_.Guard(std::move(action));
  }

  // Brings a widget up to date. The signals that Qt sends meanwhile are the program's doing and not
  // the user's: a box that loses the focus to the program, for example, was not left by the user.
  template <typename Action>
  void UpdateQuietly(const Action& action) {
    ++updating_;
    action();
    --updating_;
  }
  bool UpdatingQuietly() const { return updating_ > 0; }

  // Keeps an observation for as long as the views are up to date.
  void Own(Subscription subscription) { subscriptions_.push_back(std::move(subscription)); }

  // Mirrors nothing any more.
  void Forget() { subscriptions_.clear(); }

 private:
  EndOfProgram& end_;
  int updating_ = 0;
  std::vector<Subscription> subscriptions_;
};

}  // namespace brenwick

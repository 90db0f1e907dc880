// What the views of all controls have in common.
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

  // Makes the widget a view of the control: it bears its name, is enabled, shown and focused as the
  // control is, and `mirror` brings it up to date now and at each change.
  void Mirror(Control& control, QWidget& widget, std::function<void()> mirror);

  // Carries out what the user did.
  template <typename Action>
  void Knock(Action action) {
    if (!Following()) end_.Guard(std::move(action));
  }

  // Brings a widget up to date. What Qt tells of meanwhile is the program's doing and not the
  // user's: a box that the program takes the focus from, for example, is not left by anyone.
  template <typename Action>
  void Follow(const Action& action) {
    ++following_;
    action();
    --following_;
  }
  bool Following() const { return following_ > 0; }

  // Nothing is mirrored any more.
  void Forget() { subscriptions_.clear(); }

  void Keep(Subscription subscription) { subscriptions_.push_back(std::move(subscription)); }

 private:
  EndOfProgram& end_;
  int following_ = 0;
  std::vector<Subscription> subscriptions_;
};

}  // namespace brenwick

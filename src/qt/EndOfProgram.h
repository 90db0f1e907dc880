// Carries the end of the program through Qt.
//
// A handler of the program may end it by throwing, and no exception may cross Qt. So every call
// from Qt into the program goes through Guard: it keeps what a handler throws, and runs no handler
// from then on. Where the program has waited for Qt, GoOn rethrows the exception.
#pragma once

#include <exception>
#include <functional>
#include <utility>

namespace brenwick {

class EndOfProgram {
 public:
  // Runs a handler that Qt called, unless the program has ended.
  template <typename Handler>
  void Guard(Handler handler) {
    if (ended_) return;
    try {
      handler();
    } catch (...) {
      ended_ = std::current_exception();
      if (WhenEnded) WhenEnded();
    }
  }

  bool Ended() const { return ended_ != nullptr; }

  // From now on the program runs without a display, only to save its settings.
  void LoseDisplay() { has_display_ = false; }
  bool HasDisplay() const { return has_display_; }

  // Rethrows what ended the program; does nothing while the program has not ended.
  void GoOn() const {
    if (ended_) std::rethrow_exception(ended_);
  }

  // Called at the end of the program, to leave the loops of Qt that are running.
  std::function<void()> WhenEnded;

 private:
  std::exception_ptr ended_;
  bool has_display_ = true;
};

}  // namespace brenwick

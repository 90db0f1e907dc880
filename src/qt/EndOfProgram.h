// The end of the program on its way through Qt.
//
// A handler of the program may end it by throwing, and Qt must not be crossed by exceptions. So
// every call from Qt into the program goes through here: what a handler throws is kept, no handler
// runs any more, and where the program waits for Qt the exception goes on its way.
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

  // From now on the program goes on without a display, to save what it has to.
  void LoseDisplay() { has_display_ = false; }
  bool HasDisplay() const { return has_display_; }

  // Throws what ended the program. Without an end it does nothing.
  void GoOn() const {
    if (ended_) std::rethrow_exception(ended_);
  }

  // Leaves the loops of Qt that are running.
  std::function<void()> WhenEnded;

 private:
  std::exception_ptr ended_;
  bool has_display_ = true;
};

}  // namespace brenwick

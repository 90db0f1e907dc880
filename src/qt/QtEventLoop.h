// The event loop of a Qt application.
#pragma once

#include "platform/EventLoop.h"
#include "qt/EndOfProgram.h"

namespace brenwick {

class QtEventLoop : public EventLoop {
 public:
  explicit QtEventLoop(const EndOfProgram& end) : end_(end) {}

  // Rethrows the exception that ended the program inside.
  void DoEvents() override;
  void Sleep(std::chrono::milliseconds time) override;

 private:
  const EndOfProgram& end_;
};

}  // namespace brenwick

// The signals by which a session or a terminal ends the program.
#pragma once

#include <QSocketNotifier>
#include <functional>
#include <memory>

namespace brenwick {

// While an object lives, SIGTERM, SIGINT and SIGHUP do not end the process but call Asked from the
// event loop, so that the program can save its settings. There is one object at a time.
class EndSignals {
 public:
  EndSignals();
  EndSignals(const EndSignals&) = delete;
  EndSignals& operator=(const EndSignals&) = delete;
  ~EndSignals();

  std::function<void()> Asked;

 private:
  std::unique_ptr<QSocketNotifier> notifier_;
};

}  // namespace brenwick

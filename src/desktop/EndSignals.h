// What a session or a terminal sends to end the program.
#pragma once

#include <QSocketNotifier>
#include <functional>
#include <memory>

namespace brenwick {

// While it lives, SIGTERM, SIGINT and SIGHUP end nothing by themselves but call Asked from the loop
// of events, so that the program can save what it has to. There is one at a time.
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

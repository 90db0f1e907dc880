// A descriptor that Qt's event loop watches.
#pragma once

#include <QSocketNotifier>
#include <QTimer>
#include <chrono>
#include <functional>

#include "linux/ReadinessWatch.h"
#include "qt/EndOfProgram.h"

namespace brenwick {

class SocketWatch : public ReadinessWatch {
 public:
  explicit SocketWatch(EndOfProgram& end);

  void Start(int descriptor, std::function<void()> readable) override;
  void Again() override;
  void Later(std::chrono::milliseconds time, std::function<void()> over) override;
  void Stop() override;

 private:
  void Tell();

  EndOfProgram& end_;
  std::function<void()> handler_;
  QTimer again_;
  QSocketNotifier notifier_{QSocketNotifier::Read};
};

}  // namespace brenwick

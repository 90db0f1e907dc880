// A descriptor that Qt's event loop watches.
#pragma once

#include <QSocketNotifier>
#include <QTimer>
#include <functional>

#include "desktop/DescriptorWatch.h"
#include "desktop/qt/EndOfProgram.h"

namespace brenwick {

class SocketWatch : public DescriptorWatch {
 public:
  explicit SocketWatch(EndOfProgram& end);

  void Start(int descriptor, std::function<void()> readable) override;
  void Again() override;
  void Stop() override;

 private:
  void Tell();

  EndOfProgram& end_;
  std::function<void()> readable_;
  QTimer again_;
  QSocketNotifier notifier_{QSocketNotifier::Read};
};

}  // namespace brenwick

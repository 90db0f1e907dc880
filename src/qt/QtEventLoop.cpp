#include "qt/QtEventLoop.h"

#include <QCoreApplication>
#include <thread>

namespace brenwick {

void QtEventLoop::DoEvents() {
  if (!end_.HasDisplay()) return;
  QCoreApplication::processEvents();
  end_.GoOn();
}

void QtEventLoop::Sleep(std::chrono::milliseconds time) { std::this_thread::sleep_for(time); }

}  // namespace brenwick

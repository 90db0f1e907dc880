#include "desktop/SocketWatch.h"

#include <utility>

namespace brenwick {

SocketWatch::SocketWatch(EndOfProgram& end) : end_(end) {
  again_.setSingleShot(true);
  QObject::connect(&again_, &QTimer::timeout, &again_, [this] { Tell(); });
  QObject::connect(&notifier_, &QSocketNotifier::activated, &again_, [this] { Tell(); });
}

void SocketWatch::Start(int descriptor, std::function<void()> readable) {
  handler_ = std::move(readable);
  notifier_.setSocket(descriptor);
  notifier_.setEnabled(true);
  Again();
}

void SocketWatch::Again() { again_.start(0); }

void SocketWatch::Later(std::chrono::milliseconds time, std::function<void()> over) {
  notifier_.setEnabled(false);
  handler_ = std::move(over);
  again_.start(time);
}

void SocketWatch::Stop() {
  again_.stop();
  notifier_.setEnabled(false);
  handler_ = nullptr;
}

void SocketWatch::Tell() {
  end_.Guard([this] {
    if (const auto handler = handler_) handler();
  });
}

}  // namespace brenwick

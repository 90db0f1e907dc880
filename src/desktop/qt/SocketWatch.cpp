#include "desktop/qt/SocketWatch.h"

#include <utility>

namespace brenwick {

SocketWatch::SocketWatch(EndOfProgram& end) : end_(end) {
  again_.setSingleShot(true);
  QObject::connect(&again_, &QTimer::timeout, &again_, [this] { Tell(); });
  QObject::connect(&notifier_, &QSocketNotifier::activated, &again_, [this] { Tell(); });
}

void SocketWatch::Start(int descriptor, std::function<void()> readable) {
  readable_ = std::move(readable);
  notifier_.setSocket(descriptor);
  notifier_.setEnabled(true);
  Again();
}

void SocketWatch::Again() { again_.start(); }

void SocketWatch::Stop() {
  again_.stop();
  notifier_.setEnabled(false);
  readable_ = nullptr;
}

void SocketWatch::Tell() {
  end_.Guard([this] {
    if (const auto readable = readable_) readable();
  });
}

}  // namespace brenwick

#include "desktop/qt/SocketWatch.h"

#include <utility>

namespace brenwick {

// It may be its own signal that it goes in.
void SocketWatch::Later::operator()(QSocketNotifier* notifier) const {
  notifier->setEnabled(false);
  notifier->deleteLater();
}

SocketWatch::SocketWatch(EndOfProgram& end) : end_(end) {
  again_.setSingleShot(true);
  QObject::connect(&again_, &QTimer::timeout, &again_, [this] { Tell(); });
}

void SocketWatch::Start(int descriptor, std::function<void()> readable) {
  readable_ = std::move(readable);
  notifier_.reset(new QSocketNotifier(descriptor, QSocketNotifier::Read));
  QObject::connect(notifier_.get(), &QSocketNotifier::activated, &again_, [this] { Tell(); });
  Again();
}

void SocketWatch::Again() { again_.start(); }

void SocketWatch::Stop() {
  again_.stop();
  notifier_.reset();
  readable_ = nullptr;
}

void SocketWatch::Tell() {
  end_.Guard([this] {
    if (const auto readable = readable_) readable();
  });
}

}  // namespace brenwick

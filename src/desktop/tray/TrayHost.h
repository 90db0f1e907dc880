// Tells whether the desktop has a notification area, and when one comes or goes.
#pragma once

#include <QDBusConnection>
#include <QDBusPendingCallWatcher>
#include <QDBusServiceWatcher>
#include <QObject>
#include <functional>
#include <memory>

#include "desktop/tray/TraySelection.h"

namespace brenwick {

// There are two kinds of notification area: one is registered on the session bus, the other owns a
// selection of the X server. Qt looks for the first kind only once, when the first icon is made; so
// no icon may be made before one of the two is there.
class TrayHost : public QObject {
  Q_OBJECT

 public:
  // Asks the bus, and waits a second at most for its answer. Later answers are not waited for.
  explicit TrayHost(QDBusConnection bus);

  bool Present() const { return present_; }
  // Called when Present() has changed.
  std::function<void()> Changed;

 private slots:
  void AskBus();

 private:
  void Update();

  QDBusConnection bus_;
  TraySelection selection_;
  QDBusServiceWatcher watcher_;
  std::unique_ptr<QDBusPendingCallWatcher> answer_;  // awaited
  bool registered_ = false;
  bool present_ = false;
};

}  // namespace brenwick

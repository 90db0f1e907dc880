// Whether the desktop has a notification area now, and word of its coming and going.
#pragma once

#include <QDBusServiceWatcher>
#include <QObject>
#include <functional>

#include "desktop/tray/TraySelection.h"

namespace brenwick {

// There are two kinds: one is registered on the session bus, the other owns a selection of the X
// server. Qt looks for the first kind once only, when the first icon is made, and never again; so
// no icon may be made before one of the two is there.
class TrayHost : public QObject {
  Q_OBJECT

 public:
  TrayHost();

  bool Present() const { return present_; }
  // Called when Present() has changed.
  std::function<void()> Changed;

 private slots:
  void AskBus();

 private:
  void Update();

  TraySelection selection_;
  QDBusServiceWatcher watcher_;
  bool registered_ = false;
  bool present_ = false;
};

}  // namespace brenwick

#include "desktop/tray/TrayHost.h"

#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDBusReply>
#include <QDBusVariant>

namespace brenwick {
namespace {

const QString kService = QStringLiteral("org.kde.StatusNotifierWatcher");
const QString kPath = QStringLiteral("/StatusNotifierWatcher");
constexpr int kPatience = 1000;  // milliseconds

// There may be a service that keeps the list of the icons while nobody shows them.
bool IsShownByService(const QDBusConnection& bus) {
  const QDBusConnectionInterface* names = bus.interface();
  if (names == nullptr || !names->isServiceRegistered(kService)) return false;
  QDBusMessage call =
      QDBusMessage::createMethodCall(kService, kPath, "org.freedesktop.DBus.Properties", "Get");
  call << kService << QStringLiteral("IsStatusNotifierHostRegistered");
  const QDBusReply<QDBusVariant> reply = bus.call(call, QDBus::Block, kPatience);
  return reply.isValid() && reply.value().variant().toBool();
}

}  // namespace

TrayHost::TrayHost()
    : watcher_(kService, QDBusConnection::sessionBus(), QDBusServiceWatcher::WatchForOwnerChange) {
  selection_.Changed = [this] { Update(); };
  connect(&watcher_, &QDBusServiceWatcher::serviceOwnerChanged, this, [this] { AskBus(); });
  QDBusConnection bus = QDBusConnection::sessionBus();
  for (const char* signal : {"StatusNotifierHostRegistered", "StatusNotifierHostUnregistered"}) {
    bus.connect(kService, kPath, kService, signal, this, SLOT(AskBus()));
  }
  AskBus();
}

void TrayHost::AskBus() {
  registered_ = IsShownByService(QDBusConnection::sessionBus());
  Update();
}

void TrayHost::Update() {
  const bool present = registered_ || selection_.Owned();
  if (present == present_) return;
  present_ = present;
  if (Changed) Changed();
}

}  // namespace brenwick

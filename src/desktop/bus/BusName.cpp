#include "desktop/bus/BusName.h"

#include <QDBusMessage>

namespace brenwick {
namespace {

constexpr uint kDoNotQueue = 4;  // of the flags of RequestName
constexpr uint kOwner = 1;       // of its answers

QDBusMessage CallOfBus(const char* method, const QString& name) {
  QDBusMessage call = QDBusMessage::createMethodCall(
      "org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus", method);
  return call << name;
}

}  // namespace

bool TakeBusName(const QDBusConnection& bus, const QString& name) {
  const QDBusMessage answer = bus.call(CallOfBus("RequestName", name) << kDoNotQueue, QDBus::Block,
                                       static_cast<int>(kBusPatience.count()));
  if (answer.type() == QDBusMessage::ReplyMessage) return answer.arguments().value(0) == kOwner;
  bus.send(CallOfBus("ReleaseName", name));
  return false;
}

void ReleaseBusName(const QDBusConnection& bus, const QString& name) {
  bus.call(CallOfBus("ReleaseName", name), QDBus::Block, static_cast<int>(kBusPatience.count()));
}

}  // namespace brenwick

// A desktop that shows notifications, and an application that sends them.
#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVirtualObject>
#include <QString>
#include <QStringList>
#include <QVariantMap>

namespace brenwick {

inline QDBusMessage NotifyCall() {
  return QDBusMessage::createMethodCall("org.freedesktop.Notifications",
                                        "/org/freedesktop/Notifications",
                                        "org.freedesktop.Notifications", "Notify");
}

class MockNotifications : public QDBusVirtualObject {
 public:
  explicit MockNotifications(const QDBusConnection& bus) : bus_(bus) {}

  bool Come() {
    return bus_.registerVirtualObject("/org/freedesktop/Notifications", this) &&
           bus_.registerService("org.freedesktop.Notifications");
  }

  QString introspect(const QString& /*path*/) const override { return {}; }
  bool handleMessage(const QDBusMessage& call, const QDBusConnection& /*bus*/) override {
    shown.push_back(call.arguments().value(3).toString() + '|' +
                    call.arguments().value(4).toString());
    if (call.isReplyRequired()) bus_.send(call.createReply(uint(shown.size())));
    others += call.member() != "Notify";
    return true;
  }

  QStringList shown;  // summary and body
  int others = 0;     // what else it was asked for

 private:
  QDBusConnection bus_;
};

class NotifyingApplication {
 public:
  NotifyingApplication(const QDBusConnection& bus, QString name)
      : bus_(bus), name_(std::move(name)) {}

  void Show(const QString& summary, const QString& body, const QVariantMap& hints = {},
            uint replaces = 0) {
    QDBusMessage call = NotifyCall();
    call.setArguments(
        {name_, replaces, QString("icon"), summary, body, QStringList{}, hints, int{-1}});
    bus_.send(call);
  }
  // A call of another shape.
  void Send(const QVariantList& arguments) {
    QDBusMessage call = NotifyCall();
    call.setArguments(arguments);
    bus_.send(call);
  }

 private:
  QDBusConnection bus_;
  QString name_;
};

}  // namespace brenwick

// A desktop's portal for global shortcuts, as far as a program can see it.
#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusMetaType>
#include <QDBusObjectPath>
#include <QDBusVirtualObject>
#include <QStringList>
#include <QVariantMap>

#include "desktop/hotkeys/PortalShortcut.h"

namespace brenwick {

class MockPortal : public QDBusVirtualObject {
 public:
  explicit MockPortal(const QDBusConnection& bus) : bus_(bus) {}

  bool Come() {
    return bus_.registerVirtualObject(kRoot, this, QDBusConnection::SubPath) &&
           bus_.registerService(kService);
  }
  void Go() {
    bus_.unregisterService(kService);
    bus_.unregisterObject(kRoot);
  }

  void Activate(const QString& id) { Activate(id, session); }
  void Activate(const QString& id, const QString& ofSession) {
    Signal(kDesktop, kShortcuts, "Activated",
           {QVariant::fromValue(QDBusObjectPath(ofSession)), id, qulonglong{1},
            QVariantMap{{"activation_token", "token for " + id}}});
  }
  void ChangeShortcuts(const QStringList& bound) {
    Signal(kDesktop, kShortcuts, "ShortcutsChanged",
           {QVariant::fromValue(QDBusObjectPath(session)), QVariant::fromValue(Only(bound))});
  }
  void CloseSession() {
    Signal(session, "org.freedesktop.portal.Session", "Closed", {QVariantMap()});
  }

  QString introspect(const QString& /*path*/) const override { return {}; }

  bool handleMessage(const QDBusMessage& call, const QDBusConnection& /*bus*/) override {
    calls.push_back(call.member());
    const QVariantList arguments = call.arguments();
    if (call.member() == "Close" && call.path() == session) {
      ++closed;
      return true;
    }
    if (call.interface() != kShortcuts) return false;
    const auto options = qdbus_cast<QVariantMap>(arguments.back());
    const QString caller = QString(call.service()).remove(0, 1).replace('.', '_');
    const QString request =
        QString(kDesktop) + "/request/" + caller + '/' + options["handle_token"].toString();
    if (call.member() == "CreateSession" && call.signature() == "a{sv}") {
      session = QString(kDesktop) + "/session/" + caller + '/' +
                options["session_handle_token"].toString();
      Answer(call, request, create_code, {{"session_handle", session}});
      return true;
    }
    if (call.member() == "BindShortcuts" && call.signature() == "oa(sa{sv})sa{sv}" &&
        arguments[0].value<QDBusObjectPath>().path() == session) {
      asked = qdbus_cast<PortalShortcuts>(arguments[1]);
      QStringList bound;
      for (const PortalShortcut& each : asked) {
        if (!withheld.contains(each.id)) bound.push_back(each.id);
      }
      Answer(call, request, bind_code, {{"shortcuts", QVariant::fromValue(Only(bound))}});
      return true;
    }
    return false;
  }

  // How it answers: 0 grants, 1 tells that the user said no.
  uint create_code = 0;
  uint bind_code = 0;
  QStringList withheld;

  // What it saw.
  QStringList calls;
  PortalShortcuts asked;
  QString session;
  int closed = 0;

 private:
  static constexpr const char* kRoot = "/org/freedesktop/portal";
  static constexpr const char* kDesktop = "/org/freedesktop/portal/desktop";
  static constexpr const char* kService = "org.freedesktop.portal.Desktop";
  static constexpr const char* kShortcuts = "org.freedesktop.portal.GlobalShortcuts";

  static PortalShortcuts Only(const QStringList& ids) {
    PortalShortcuts shortcuts;
    for (const QString& id : ids) {
      shortcuts.push_back({id, {{"trigger_description", "the keys of " + id}}});
    }
    return shortcuts;
  }
  void Answer(const QDBusMessage& call, const QString& request, uint code,
              const QVariantMap& results) {
    bus_.send(call.createReply(QVariant::fromValue(QDBusObjectPath(request))));
    Signal(request, "org.freedesktop.portal.Request", "Response", {code, results});
  }
  void Signal(const QString& path, const QString& interface, const QString& name,
              const QVariantList& values) {
    QDBusMessage signal = QDBusMessage::createSignal(path, interface, name);
    signal.setArguments(values);
    bus_.send(signal);
  }

  QDBusConnection bus_;
};

}  // namespace brenwick

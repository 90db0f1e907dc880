// The hotkeys of a Wayland desktop: its portal is asked for them over D-Bus.
#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusServiceWatcher>
#include <QObject>
#include <QString>
#include <QStringList>
#include <QVariantMap>
#include <functional>
#include <string>
#include <vector>

#include "desktop/hotkeys/HotKeySource.h"
#include "desktop/hotkeys/PortalShortcut.h"

namespace brenwick {

// All keys are bound at once, as the portal can be asked only once in a session and may ask the
// user; those of disabled controls do nothing. The desktop, and in it the user, may choose other
// keys than those that are proposed. Where there is no portal, or it gives no keys, the controls
// are told which command does the same.
class PortalHotKeys : public QObject, public HotKeySource {
  Q_OBJECT
 public:
  PortalHotKeys(QDBusConnection bus, frmMain& form, Views& views);
  ~PortalHotKeys() override;

  void Arm() override;

 private:
  struct Key {
    HotKeyControl& control;
    QString id;
    QString description;
    std::string command;
  };
  // A question that the portal answers later, by a signal.
  struct Request {
    QString path;
    std::function<void(const QVariantMap&)> Granted;
  };

  Q_SLOT void Hear(const QDBusMessage& signal);
  void HearOwner(const QString& owner);
  void Listen();
  void OpenSession();
  void BindShortcuts();
  void Ask(const char* method, QVariantList arguments, QVariantMap options,
           std::function<void(const QVariantMap&)> granted);
  void Answered(uint code, const QVariantMap& results);
  void Activated(const QString& id);
  void Bound(const PortalShortcuts& shortcuts);
  void NoKeys();
  QString NextToken();

  QDBusConnection bus_;
  Views& views_;
  std::vector<Key> keys_;
  QDBusServiceWatcher watcher_;
  Request request_;
  QString session_;  // its path, "" while there is none
  int tokens_ = 0;
  bool portal_gone_ = false;
};

}  // namespace brenwick

// A shortcut as the portal for global shortcuts writes it on D-Bus: (sa{sv}).
#pragma once

#include <QDBusArgument>
#include <QList>
#include <QMetaType>
#include <QString>
#include <QVariantMap>

namespace brenwick {

struct PortalShortcut {
  QString id;
  QVariantMap properties;
};
using PortalShortcuts = QList<PortalShortcut>;

inline QDBusArgument& operator<<(QDBusArgument& argument, const PortalShortcut& shortcut) {
  argument.beginStructure();
  argument << shortcut.id << shortcut.properties;
  argument.endStructure();
  return argument;
}

inline const QDBusArgument& operator>>(const QDBusArgument& argument, PortalShortcut& shortcut) {
  argument.beginStructure();
  argument >> shortcut.id >> shortcut.properties;
  argument.endStructure();
  return argument;
}

}  // namespace brenwick

Q_DECLARE_METATYPE(brenwick::PortalShortcut)

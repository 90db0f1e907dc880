// A session bus of the test's own.
#pragma once

#include <QDBusConnection>
#include <QFile>
#include <QString>
#include <QTemporaryDir>
#include <stdexcept>
#include <string>

#include "desktop/Server.h"

namespace brenwick {

// It starts no services: nothing of the machine may answer in a mock's place.
class PrivateBus {
 public:
  QDBusConnection Connect(const QString& name) {
    return QDBusConnection::connectToBus(QString::fromStdString(address_), name);
  }

 private:
  QString Configuration() {
    QFile file(folder_.filePath("bus.conf"));
    if (!file.open(QIODevice::WriteOnly)) throw std::runtime_error("no configuration");
    file.write("<busconfig><type>session</type><listen>unix:dir=" + folder_.path().toUtf8() +
               "</listen><policy context=\"default\"><allow send_destination=\"*\"/>"
               "<allow eavesdrop=\"true\"/><allow own=\"*\"/></policy></busconfig>");
    return file.fileName();
  }

  QTemporaryDir folder_;
  Server server_{"dbus-daemon",
                 {"--nofork", "--print-address=1", "--config-file=" + Configuration()}};
  std::string address_ = server_.Line();
};

}  // namespace brenwick

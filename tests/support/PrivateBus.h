// A session bus of a test's own.
#pragma once

#include <QDBusConnection>
#include <QFile>
#include <QString>
#include <QTemporaryDir>
#include <memory>
#include <stdexcept>
#include <string>

#include "support/Server.h"

namespace brenwick {

// It starts no services: none of the machine may answer in the place of a test's mock.
class PrivateBus {
 public:
  // monitored: whether it lets a connection monitor it.
  explicit PrivateBus(bool monitored = true)
      : server_(std::make_unique<Server>(
            "dbus-daemon", QStringList{"--nofork", "--print-address=1",
                                       "--config-file=" + Configuration(monitored)})) {}

  const std::string& Address() const { return address_; }
  QDBusConnection Connect(const QString& name) {
    return QDBusConnection::connectToBus(QString::fromStdString(address_), name);
  }
  void Go() { server_.reset(); }
  void Hang() { server_->Hang(); }
  void GoOn() { server_->GoOn(); }

 private:
  QString Configuration(bool monitored) {
    QFile file(folder_.filePath("bus.conf"));
    if (!file.open(QIODevice::WriteOnly)) throw std::runtime_error("no configuration");
    const QByteArray refusal =
        "<deny send_destination=\"org.freedesktop.DBus\" "
        "send_interface=\"org.freedesktop.DBus.Monitoring\"/>";
    file.write("<busconfig><type>session</type><listen>unix:dir=" + folder_.path().toUtf8() +
               "</listen><policy context=\"default\"><allow send_destination=\"*\"/>"
               "<allow eavesdrop=\"true\"/><allow own=\"*\"/>" +
               (monitored ? QByteArray() : refusal) + "</policy></busconfig>");
    return file.fileName();
  }

  QTemporaryDir folder_;
  std::unique_ptr<Server> server_;
  std::string address_ = server_->Line();
};

}  // namespace brenwick

// A server in a process of its own, for one test.
#pragma once

#include <signal.h>
#include <sys/prctl.h>

#include <QProcess>
#include <QString>
#include <QStringList>
#include <stdexcept>
#include <string>

namespace brenwick {

class Server {
 public:
  Server(const QString& program, const QStringList& arguments) : program_(program.toStdString()) {
    process_.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    // It is not left behind by a test that crashes.
    process_.setChildProcessModifier([] { prctl(PR_SET_PDEATHSIG, SIGTERM); });
    process_.start(program, arguments);
  }
  Server(const Server&) = delete;
  Server& operator=(const Server&) = delete;
  ~Server() {
    process_.terminate();
    GoOn();
    WaitForEnd();
  }

  // The next line that the server prints.
  std::string Line() {
    while (!process_.canReadLine()) {
      if (!process_.waitForReadyRead()) throw std::runtime_error(program_ + " is silent");
    }
    return process_.readLine().trimmed().toStdString();
  }

  // Does nothing from now on, as a program that hangs.
  void Hang() { ::kill(static_cast<pid_t>(process_.processId()), SIGSTOP); }
  void GoOn() {
    if (process_.processId() > 0) ::kill(static_cast<pid_t>(process_.processId()), SIGCONT);
  }

  void EndItsInput() {
    process_.closeWriteChannel();
    WaitForEnd();
  }

 private:
  void WaitForEnd() {
    if (!process_.waitForFinished()) process_.kill();
    process_.waitForFinished();
  }

  std::string program_;
  QProcess process_;
};

}  // namespace brenwick

// A web server in a process of its own, for one request.
#pragma once

#include <QProcess>
#include <QString>
#include <stdexcept>
#include <string>

namespace brenwick {

class WebServer {
 public:
  // The manners stand in web_server.py.
  explicit WebServer(const char* manner) {
    process_.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    process_.start("/usr/bin/python3",
                   {BRENWICK_SOURCE_DIR "/tests/desktop/web_server.py", manner});
    port_ = Line();
  }
  WebServer(const WebServer&) = delete;
  WebServer& operator=(const WebServer&) = delete;
  // The server ends with its input; it is not left behind whatever it does.
  ~WebServer() {
    process_.closeWriteChannel();
    if (!process_.waitForFinished()) process_.kill();
    process_.waitForFinished();
  }

  std::string Host() const { return "127.0.0.1:" + port_; }

  // The next line that the server prints.
  std::string Line() {
    while (!process_.canReadLine()) {
      if (!process_.waitForReadyRead()) throw std::runtime_error("the web server is silent");
    }
    return process_.readLine().trimmed().toStdString();
  }

 private:
  QProcess process_;
  std::string port_;
};

}  // namespace brenwick

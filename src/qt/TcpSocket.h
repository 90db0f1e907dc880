// The window's socket on the network.
#pragma once

#include <QTcpSocket>
#include <QTimer>
#include <functional>
#include <string>

#include "controls/Winsock.h"
#include "qt/EndOfProgram.h"

namespace brenwick {

class TcpSocket : public SocketDriver {
 public:
  // The socket outlives its driver.
  TcpSocket(EndOfProgram& end, Winsock& socket);
  TcpSocket(const TcpSocket&) = delete;
  TcpSocket& operator=(const TcpSocket&) = delete;
  ~TcpSocket() override;

  // Gives up the former connection. No operation waits. A connection that the other side ends, in
  // whatever way, is closed; everything else that goes wrong is an error.
  void Connect(const std::string& host, int port) override;
  void SendData(const std::string& data) override;
  std::string GetData() override;
  void Close() override;

 private:
  void StateChanged(QAbstractSocket::SocketState state);
  void Fail();
  void Raise(const std::function<void()>& event);

  EndOfProgram& end_;
  Winsock& socket_;
  QTcpSocket connection_;
  QTimer refusal_;     // what cannot be tried fails as an event too
  bool open_ = false;  // from Connect to Close or a failure: only then are events raised
};

}  // namespace brenwick

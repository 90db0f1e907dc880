#include "qt/TcpSocket.h"

#include <QString>
#include <limits>

namespace brenwick {

TcpSocket::TcpSocket(EndOfProgram& end, Winsock& socket) : end_(end), socket_(socket) {
  QObject::connect(&connection_, &QTcpSocket::stateChanged, &connection_,
                   [this](QAbstractSocket::SocketState state) { StateChanged(state); });
  QObject::connect(&connection_, &QTcpSocket::connected, &connection_,
                   [this] { Raise(socket_.OnConnect); });
  QObject::connect(&connection_, &QTcpSocket::readyRead, &connection_,
                   [this] { Raise(socket_.OnDataArrival); });
  QObject::connect(&connection_, &QTcpSocket::disconnected, &connection_,
                   [this] { Raise(socket_.OnClose); });
  QObject::connect(&connection_, &QTcpSocket::errorOccurred, &connection_,
                   [this](QAbstractSocket::SocketError error) {
                     if (error != QAbstractSocket::RemoteHostClosedError) Fail();
                   });
  refusal_.setSingleShot(true);
  QObject::connect(&refusal_, &QTimer::timeout, &connection_, [this] { Fail(); });
  socket_.SetDriver(this);
}

TcpSocket::~TcpSocket() {
  socket_.SetDriver(nullptr);
  Close();
}

void TcpSocket::Connect(const std::string& host, int port) {
  Close();
  open_ = true;
  if (port < 1 || port > std::numeric_limits<quint16>::max()) {
    refusal_.start();
    return;
  }
  connection_.connectToHost(QString::fromStdString(host), static_cast<quint16>(port));
}

void TcpSocket::SendData(const std::string& data) {
  if (connection_.isWritable()) connection_.write(data.data(), static_cast<qint64>(data.size()));
}

std::string TcpSocket::GetData() {
  return connection_.isReadable() ? connection_.readAll().toStdString() : std::string();
}

void TcpSocket::Close() {
  open_ = false;
  refusal_.stop();
  connection_.abort();
}

void TcpSocket::StateChanged(QAbstractSocket::SocketState state) {
  if (!open_) return;
  switch (state) {
    case QAbstractSocket::HostLookupState:
      socket_.SetState(SocketState::ResolvingHost);
      break;
    case QAbstractSocket::ConnectingState:
      socket_.SetState(SocketState::Connecting);
      break;
    case QAbstractSocket::ConnectedState:
      socket_.SetState(SocketState::Connected);
      break;
    case QAbstractSocket::ClosingState:
      socket_.SetState(SocketState::Closing);
      break;
    default:
      break;
  }
}

// No other event follows, whatever still becomes of the connection.
void TcpSocket::Fail() {
  if (!open_) return;
  open_ = false;
  socket_.SetState(SocketState::Error);
  end_.Guard([this] {
    if (socket_.OnError) socket_.OnError();
  });
}

void TcpSocket::Raise(const std::function<void()>& event) {
  if (!open_) return;
  end_.Guard([&event] {
    if (event) event();
  });
}

}  // namespace brenwick

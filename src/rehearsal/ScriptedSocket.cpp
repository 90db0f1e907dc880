#include "rehearsal/ScriptedSocket.h"

namespace brenwick {

void ScriptedSocket::Drive(Winsock& socket) {
  socket_ = &socket;
  connecting_ = false;
  socket.SetDriver(this);
}

void ScriptedSocket::Connect(const std::string& host, int port) {
  transcript_.Write({{"connect", {{"host", host}, {"port", port}}}});
  connecting_ = true;
  steps_ = 0;
  arrived_.clear();
  socket_->SetState(SocketState::Connecting);
}

void ScriptedSocket::SendData(const std::string& data) { transcript_.Write({{"send", data}}); }

void ScriptedSocket::Step() {
  if (!connecting_ || web.kind == ScriptedWeb::Kind::Silent) return;
  if (++steps_ < web.after_steps) return;
  connecting_ = false;
  if (web.kind == ScriptedWeb::Kind::Error) {
    socket_->SetState(SocketState::Error);
    if (socket_->OnError) socket_->OnError();
    return;
  }
  Answer();
}

void ScriptedSocket::Answer() {
  socket_->SetState(SocketState::Connected);
  if (socket_->OnConnect) socket_->OnConnect();
  arrived_ = web.reply;
  if (socket_->OnDataArrival) socket_->OnDataArrival();
  socket_->SetState(SocketState::Closing);
  if (socket_->OnClose) socket_->OnClose();
}

}  // namespace brenwick

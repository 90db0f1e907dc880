#include "rehearsal/ScriptedSocket.h"

namespace brenwick {

void ScriptedSocket::Drive(Winsock& socket) {
  socket_ = &socket;
  state_ = State::Idle;
  arrived_.clear();
  socket.SetDriver(this);
}

void ScriptedSocket::Connect(const std::string& host, int port) {
  transcript_.Write({{"connect", {{"host", host}, {"port", port}}}});
  state_ = State::Connecting;
  steps_ = 0;
  arrived_.clear();
  socket_->SetState(SocketState::Connecting);
}

void ScriptedSocket::SendData(const std::string& data) { transcript_.Write({{"send", data}}); }

void ScriptedSocket::Step() {
  if (state_ != State::Connecting || web.kind == ScriptedWeb::Kind::Silent) return;
  if (++steps_ < web.after_steps) return;
  if (web.kind == ScriptedWeb::Kind::Reply) {
    Answer();
    return;
  }
  state_ = State::Idle;
  socket_->SetState(SocketState::Error);
  if (socket_->OnError) socket_->OnError();
}

// The program may close the socket in the handler of any of these events; no event follows then.
void ScriptedSocket::Answer() {
  state_ = State::Connected;
  socket_->SetState(SocketState::Connected);
  if (socket_->OnConnect) socket_->OnConnect();
  if (state_ != State::Connected) return;
  arrived_ = web.reply;
  if (socket_->OnDataArrival) socket_->OnDataArrival();
  if (state_ != State::Connected) return;
  state_ = State::Idle;
  socket_->SetState(SocketState::Closing);
  if (socket_->OnClose) socket_->OnClose();
}

}  // namespace brenwick

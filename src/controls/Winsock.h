// A TCP socket with events. The program calls its methods; the world that drives it carries them
// out, keeps the state, and raises the events.
#pragma once

#include <functional>
#include <string>
#include <utility>

#include "controls/Control.h"

namespace brenwick {

enum class SocketState : int {
  Closed = 0,
  Open = 1,
  Listening = 2,
  ConnectionPending = 3,
  ResolvingHost = 4,
  HostResolved = 5,
  Connecting = 6,
  Connected = 7,
  Closing = 8,
  Error = 9,
};

// A world's side of the socket. Nothing here waits; results come back as events.
class SocketDriver {
 public:
  virtual ~SocketDriver() = default;
  virtual void Connect(const std::string& host, int port) = 0;
  virtual void SendData(const std::string& data) = 0;
  // The data that has arrived and was not yet taken.
  virtual std::string GetData() = 0;
  virtual void Close() = 0;
};

class Winsock : public Control {
 public:
  Winsock(ControlList& window, std::string name)
      : Control(Place{window, kNoPage}, std::move(name)) {}

  // The driver outlives the socket's last use; without one every call does nothing.
  void SetDriver(SocketDriver* driver) { driver_ = driver; }

  SocketState State() const { return state_; }
  int LocalPort() const { return local_port_; }
  void SetLocalPort(int port) { local_port_ = port; }

  void Connect(const std::string& host, int port);
  void SendData(const std::string& data);
  std::string GetData();
  void Close();

  // The driver's door.
  void SetState(SocketState state) { Update(state_, state); }

  std::function<void()> OnConnect;
  std::function<void()> OnDataArrival;
  std::function<void()> OnClose;
  std::function<void()> OnError;

 private:
  SocketDriver* driver_ = nullptr;
  SocketState state_ = SocketState::Closed;
  int local_port_ = 0;
};

}  // namespace brenwick

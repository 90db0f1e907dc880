// What the version check meets.
#pragma once

#include <string>
#include <utility>

#include "controls/Winsock.h"
#include "rehearsal/Transcript.h"

namespace brenwick {

struct ScriptedWeb {
  enum class Kind { Silent, Error, Reply };
  Kind kind = Kind::Silent;
  std::string reply;
  int after_steps = 1;  // passes of the event loop until the reply is there
};

class ScriptedSocket : public SocketDriver {
 public:
  explicit ScriptedSocket(Transcript& transcript) : transcript_(transcript) {}

  void Drive(Winsock& socket);
  void Connect(const std::string& host, int port) override;
  void SendData(const std::string& data) override;
  std::string GetData() override { return std::exchange(arrived_, {}); }
  void Close() override { state_ = State::Idle; }

  // One pass of the event loop.
  void Step();

  ScriptedWeb web;

 private:
  enum class State { Idle, Connecting, Connected };

  void Answer();

  Transcript& transcript_;
  Winsock* socket_ = nullptr;
  State state_ = State::Idle;
  int steps_ = 0;
  std::string arrived_;
};

}  // namespace brenwick

// Connects to a message bus without keeping the program's thread waiting.
#pragma once

#include <chrono>
#include <functional>
#include <future>
#include <memory>
#include <string>

#include "linux/BusConnection.h"

namespace brenwick {

// A bus that hangs may keep a caller waiting for ever, so a thread of its own connects. The
// destructor does not wait for that thread: a connection that is made later is closed by the
// thread.
class BusConnecting {
 public:
  // Makes the connection. Called once, on the other thread, possibly after this object's end.
  using Connect = std::function<std::unique_ptr<BusConnection>()>;

  explicit BusConnecting(Connect connect);
  BusConnecting(const BusConnecting&) = delete;
  BusConnecting& operator=(const BusConnecting&) = delete;

  // Readable once there is a result.
  int Descriptor() const;
  // True once there is a result; waits for it until the limit is reached.
  bool Await(std::chrono::milliseconds limit) const;
  // The result, once. Raises what `connect` raised.
  std::unique_ptr<BusConnection> Take() { return result_.get(); }

 private:
  class Event;

  std::shared_ptr<Event> done_;
  std::future<std::unique_ptr<BusConnection>> result_;
};

// Connects to the bus at the address, and waits for it BusConnection::kPatience at most. Raises a
// SilentBus where the bus does not answer within that time, else what BusConnection raises.
std::unique_ptr<BusConnection> ConnectInTime(const std::string& address);

// True where the bus at the address does not answer in time; false where it answers, or where there
// is none.
bool IsSilent(const std::string& address);

}  // namespace brenwick

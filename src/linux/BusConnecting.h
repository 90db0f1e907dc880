// Connects to a message bus without keeping the program's thread waiting.
#pragma once

#include <chrono>
#include <functional>
#include <future>
#include <memory>

#include "linux/BusConnection.h"

namespace brenwick {

// A bus that hangs may keep whoever connects to it waiting for ever, so the work is done on a
// thread of its own. An object that is destroyed leaves the thread to itself: what it still makes
// is closed there.
class BusConnecting {
 public:
  // Makes the connection. Called once, on the other thread, possibly after this object's end.
  using Connect = std::function<std::unique_ptr<BusConnection>()>;

  explicit BusConnecting(Connect connect);
  BusConnecting(const BusConnecting&) = delete;
  BusConnecting& operator=(const BusConnecting&) = delete;

  // Readable once there is a result.
  int Descriptor() const;
  // True once there is a result; waits for it as long as the limit says.
  bool Await(std::chrono::milliseconds limit) const;
  // The result, once. Raises what `connect` raised.
  std::unique_ptr<BusConnection> Take() { return result_.get(); }

 private:
  class Event;

  std::shared_ptr<Event> done_;
  std::future<std::unique_ptr<BusConnection>> result_;
};

}  // namespace brenwick

// A private connection to a message bus, below the level of methods and signals.
#pragma once

#include <chrono>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

struct DBusConnection;
struct DBusMessage;

namespace brenwick {

struct UnrefMessage {
  void operator()(DBusMessage* message) const;
};
using BusMessage = std::unique_ptr<DBusMessage, UnrefMessage>;

// The address of the user's session bus; empty where there is none. This starts no bus.
std::string SessionBusAddress();

// A method and the object that has it.
struct BusMethod {
  const char* service;
  const char* path;
  const char* interface;
  const char* member;
};

// A call with these texts, which wants no answer.
BusMessage CallWithTexts(const BusMethod& method, const std::vector<std::string>& texts);

// Raised where a bus, or the program that is called over it, does not answer in time.
class SilentBus : public std::runtime_error {
 public:
  SilentBus() : std::runtime_error("the bus does not answer") {}
};

// Belongs to one thread at a time.
class BusConnection {
 public:
  // The time for which a call or a message that is sent waits. A bus answers at once or not at all.
  static constexpr std::chrono::milliseconds kPatience{1000};

  // Connects and says hello. The answer is awaited for kPatience; connecting itself has no limit
  // where the bus has stopped and its queue is full (BusConnecting is for that). Raises a
  // SilentBus where the bus does not answer, and a std::runtime_error that says why it cannot be
  // had otherwise.
  explicit BusConnection(const std::string& address);
  BusConnection(const BusConnection&) = delete;
  BusConnection& operator=(const BusConnection&) = delete;
  ~BusConnection();

  // The name that the bus has given to this connection, such as ":1.7".
  const std::string& Name() const { return name_; }
  bool IsOpen() const;
  // Readable when something has arrived.
  int Descriptor() const;

  // Waits for the answer, kPatience at most. Raises a SilentBus where none came, and a
  // std::runtime_error that holds the answer where that is an error.
  BusMessage Call(DBusMessage& call);
  // Waits until the bus has taken the message, kPatience at most, and not for an answer. False: the
  // bus is gone, or has not taken the whole message; the rest may still reach it later.
  bool Send(DBusMessage& message);

  // Reads what has arrived, without waiting.
  void Read();
  // The next message that was read; nothing when there is none. Nothing else handles or answers it.
  BusMessage Next();

 private:
  struct Close {
    void operator()(DBusConnection* connection) const;
  };

  std::unique_ptr<DBusConnection, Close> connection_;
  std::string name_;
};

}  // namespace brenwick

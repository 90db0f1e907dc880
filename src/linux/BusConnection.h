// A connection of one's own to a message bus, below the level of methods and signals.
#pragma once

#include <memory>
#include <string>

struct DBusConnection;
struct DBusMessage;

namespace brenwick {

struct UnrefMessage {
  void operator()(DBusMessage* message) const;
};
using BusMessage = std::unique_ptr<DBusMessage, UnrefMessage>;

// Where the user's session bus listens; empty where there is none. No bus is started for it.
std::string SessionBusAddress();

class BusConnection {
 public:
  // Connects and says hello, which waits for the bus, but not for long. Raises a std::runtime_error
  // that says why it cannot be had.
  explicit BusConnection(const std::string& address);
  BusConnection(const BusConnection&) = delete;
  BusConnection& operator=(const BusConnection&) = delete;
  ~BusConnection();

  // What the bus calls this connection, such as ":1.7".
  const std::string& Name() const { return name_; }
  bool IsOpen() const;
  // Readable when something has come.
  int Descriptor() const;

  // Waits for the answer, but not for long. Raises a std::runtime_error with the answer where that
  // is an error.
  BusMessage Call(DBusMessage& call);
  // Waits for no answer. False: the bus is gone.
  bool Send(DBusMessage& message);

  // Takes in what has come, without waiting.
  void Read();
  // The next message that was taken in; nothing when there is none. Nobody else handles it, and
  // nothing is answered to it.
  BusMessage Next();

 private:
  struct Close {
    void operator()(DBusConnection* connection) const;
  };

  std::unique_ptr<DBusConnection, Close> connection_;
  std::string name_;
};

}  // namespace brenwick

// The messengers that the program listens to and the engines that it speaks with, for the page that
// shows them.
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

namespace brenwick {

enum class ConnectionState {
  Off,       // the user does not want it
  Waiting,   // there is nothing yet to be connected to
  Attached,  // it works
  Failed,    // it should work and does not; the detail says why
};

struct Connection {
  std::string Name;  // as people call it: "Pidgin", "espeak-ng"
  ConnectionState State = ConnectionState::Waiting;
  std::string Detail = {};  // the account it is attached as, or why it failed; often empty

  bool operator==(const Connection& other) const = default;
};

// An application that has shown a notification.
struct SeenApplication {
  std::string Name;
  bool On = false;  // its notifications are read aloud
};

// The program calls each operation on its own thread; none of them lets an event run, or waits for
// a messenger or an engine.
class Connections {
 public:
  Connections() = default;
  Connections(const Connections&) = delete;
  Connections& operator=(const Connections&) = delete;
  virtual ~Connections() = default;

  // The sources and the engines: the same ones in the same order while the program runs. Where both
  // are empty, the program has no page of connections. They throw nothing.
  virtual std::vector<Connection> Sources() = 0;
  virtual std::vector<Connection> Engines() = 0;

  // Sends the sentence the way that a message of this source goes; it arrives as an event of the
  // messenger client, or not at all where the way is broken. index: a position in Sources();
  // another raises std::out_of_range.
  virtual void TestSource(std::size_t index, const std::string& sentence) = 0;
  // Speaks the sentence with this engine, behind what is being said. An engine that fails says so
  // in Engines(). index: a position in Engines(); another raises std::out_of_range.
  virtual void TestEngine(std::size_t index, const std::string& sentence) = 0;

  // In the order of their names.
  virtual std::vector<SeenApplication> Applications() = 0;
  // Switches the reading of one application's notifications and remembers the choice. A choice that
  // cannot be stored holds until the end of the program.
  virtual void SwitchApplication(const std::string& name, bool on) = 0;

  // Whether the messages of group chats are read aloud. The choice is remembered as above.
  virtual bool GroupChats() = 0;
  virtual void SetGroupChats(bool on) = 0;

  // Called on the program's thread when any of the answers above may have changed. The handler may
  // ask all of them; it starts no test.
  std::function<void()> Changed;
};

}  // namespace brenwick

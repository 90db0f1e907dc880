// The user's messenger client: its events, and what the program asks of it.
#pragma once

#include <cstdint>
#include <string>

namespace brenwick {

// A person at the other end.
struct MessengerContact {
  std::string SigninName;    // the address that identifies the contact
  std::string FriendlyName;  // the display name that the contact chose
};

// States as the client numbers them. Other numbers occur and mean an unknown state.
enum MessengerState : std::int32_t {
  MSTATE_UNKNOWN = 0,
  MSTATE_OFFLINE = 1,
  MSTATE_ONLINE = 2,
  MSTATE_INVISIBLE = 6,
  MSTATE_BUSY = 10,
  MSTATE_BE_RIGHT_BACK = 14,
  MSTATE_IDLE = 18,
  MSTATE_AWAY = 34,
  MSTATE_ON_THE_PHONE = 50,
  MSTATE_OUT_TO_LUNCH = 66,
  MSTATE_LOCAL_FINDING_SERVER = 256,
  MSTATE_LOCAL_CONNECTING_TO_SERVER = 512,
  MSTATE_LOCAL_SYNCHRONIZING_WITH_SERVER = 768,
  MSTATE_LOCAL_DISCONNECTING_FROM_SERVER = 1024,
};

// What happens at the client. The client calls each event on the program's thread, in the order in
// which they came, and only between Attach and the end of Detach; one event at a time, except that
// `HandleWaiting` has events handled inside the handler that calls it. All texts are valid UTF-8:
// the client's side repairs what it received. A handler may let other events run, detach, or end
// the program by throwing ProgramEnd; it throws nothing else.
class MessengerListener {
 public:
  virtual ~MessengerListener() = default;

  // A contact has written. header: what the network put in front of the text; often empty.
  virtual void OnTextReceived(const MessengerContact& sender, const std::string& header,
                              const std::string& text) = 0;
  // A contact's state has changed.
  virtual void OnUserStateChanged(const MessengerContact& user, std::int32_t state) = 0;
  // A contact's state is known without having changed: the state of each contact when the client is
  // met or the user signs on, and offline when the user signs off. It is recorded, never announced.
  virtual void OnUserStateFound(const MessengerContact& user, std::int32_t state) = 0;
  // The user's own state has changed.
  virtual void OnLocalStateChangeResult(std::int32_t state) = 0;
  // A contact invites the user to use an application together, or to a group chat.
  virtual void OnAppInviteReceived(const MessengerContact& contact, const std::string& appName) = 0;
  // A contact offers a file.
  virtual void OnFileTransferInviteReceived(const MessengerContact& contact,
                                            const std::string& fileName) = 0;
  // A newer version of the client can be had at this address.
  virtual void OnNewerClientAvailable(const std::string& downloadAddress) = 0;
  // Any other event of the client. name: as the client calls it, such as "OnUserJoin".
  virtual void OnOtherEvent(const std::string& name) = 0;
};

// The program calls each operation on its own thread.
class MessengerClient {
 public:
  MessengerClient() = default;
  MessengerClient(const MessengerClient&) = delete;
  MessengerClient& operator=(const MessengerClient&) = delete;
  virtual ~MessengerClient() = default;

  // From now on the client's events reach the listener, which outlives the attachment. Called once
  // at start-up; no event comes before it returns. It takes a second at most for each source of
  // messages that the client joins. Raises a Failure when there is no way to reach a client at all;
  // a client that is merely not running is no failure.
  virtual void Attach(MessengerListener& listener) = 0;
  // No event reaches the listener after this returns. It may be called from inside an event, and
  // when nothing is attached. It throws nothing.
  virtual void Detach() = 0;

  // The user's own state, a MessengerState; MSTATE_OFFLINE while no client runs. It answers at once
  // from what is known, and throws nothing; so does MyName.
  virtual std::int32_t MyStatus() = 0;
  // The user's own display name; empty when none is known.
  virtual std::string MyName() = 0;

  // Asks the client to open its message window for the contact with this sign-in name, and does not
  // wait for it. Raises a Failure when the client cannot be asked.
  virtual void InstantMessage(const std::string& contact) = 0;

  // Called inside a handler that waits for something else: has the listener handle the events that
  // came meanwhile and wait for the end of that handler. A client that makes no event wait has
  // nothing to do. Throws ProgramEnd where a handler ends the program.
  virtual void HandleWaiting() {}
};

}  // namespace brenwick

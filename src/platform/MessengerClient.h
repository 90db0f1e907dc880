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

// One method an event. The client calls them on the program's thread, one at a time, in the order
// of the events; a handler may end the program by throwing ProgramEnd. All texts are valid UTF-8:
// the client's side repairs what it received.
class MessengerListener {
 public:
  virtual ~MessengerListener() = default;

  virtual void OnTextReceived(const MessengerContact& sender, const std::string& header,
                              const std::string& text) = 0;
  virtual void OnUserStateChanged(const MessengerContact& user, std::int32_t state) = 0;
  // Not a change but how things stand: the state of each contact when the client is met or the user
  // signs on, and offline when the user signs off. It is recorded and never announced.
  virtual void OnUserStateFound(const MessengerContact& user, std::int32_t state) = 0;
  // The user's own state change was carried out.
  virtual void OnLocalStateChangeResult(std::int32_t state) = 0;
  virtual void OnAppInviteReceived(const MessengerContact& contact, const std::string& appName) = 0;
  virtual void OnFileTransferInviteReceived(const MessengerContact& contact,
                                            const std::string& fileName) = 0;
  virtual void OnNewerClientAvailable(const std::string& downloadAddress) = 0;

  // Events that carry nothing the program uses.
  virtual void OnAppInviteAccepted() = 0;
  virtual void OnAppShutdown() = 0;
  virtual void OnBuddyPropertyChangeResult() = 0;
  virtual void OnFindResult() = 0;
  virtual void OnListAddResult() = 0;
  virtual void OnLogoff() = 0;
  virtual void OnLogonResult() = 0;
  virtual void OnMessagePrivacyChangeResult() = 0;
  virtual void OnTrustChanged() = 0;
  virtual void OnUnreadEmailChanged() = 0;
  virtual void OnUserDropped() = 0;
  virtual void OnUserFriendlyNameChangeResult() = 0;
  virtual void OnUserJoin() = 0;
  virtual void OnUserLeave() = 0;
  virtual void OnNewSessionRequest() = 0;
  virtual void OnNotificationReceived() = 0;
  virtual void OnPrimaryServiceChanged() = 0;
  virtual void OnPromptChangeResult() = 0;
  virtual void OnRequestURLPostResult() = 0;
  virtual void OnRequestURLResult() = 0;
  virtual void OnSendResult() = 0;
  virtual void OnServiceLogoff() = 0;
  virtual void OnSessionStateChange() = 0;
  virtual void OnSPMessageReceived() = 0;
};

class MessengerClient {
 public:
  MessengerClient() = default;
  MessengerClient(const MessengerClient&) = delete;
  MessengerClient& operator=(const MessengerClient&) = delete;
  virtual ~MessengerClient() = default;

  // From now on the client's events reach the listener, which outlives the attachment. Called once
  // at start-up. Raises a Failure when there is no way to reach a client at all; a client that is
  // merely not running is no failure.
  virtual void Attach(MessengerListener& listener) = 0;
  // No event reaches the listener after this returns; harmless when nothing is attached.
  virtual void Detach() = 0;

  // The user's own state, a MessengerState; MSTATE_OFFLINE while no client runs.
  virtual std::int32_t MyStatus() = 0;
  // The user's own display name; empty when none is known.
  virtual std::string MyName() = 0;

  // Asks the client to open its message window for the contact with this sign-in name, without
  // waiting for it. Raises a Failure when the client cannot be asked.
  virtual void InstantMessage(const std::string& contact) = 0;
};

}  // namespace brenwick

// A client that is built on libpurple, as it is followed over the session bus.
#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QObject>
#include <QTimer>
#include <atomic>
#include <chrono>
#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "desktop/purple/PurpleBus.h"
#include "desktop/purple/PurpleInbox.h"
#include "desktop/purple/PurplePeople.h"
#include "platform/Connections.h"
#include "platform/MessengerClient.h"
#include "sources/PurpleStates.h"

namespace brenwick {

// Hears what a client does. Each event is called on the program's thread, one at a time, and may
// end the program by throwing ProgramEnd.
class PurpleListener {
 public:
  virtual ~PurpleListener() = default;

  // there: a client is on the bus, even if it does not answer for a while.
  virtual void ConnectionIs(const Connection& connection, bool there) = 0;
  virtual void OwnStateIs(std::int32_t state, const std::string& name) = 0;
  // A conversation with this contact can be opened as long as the account is signed on.
  virtual void CanReach(const std::string& contact, int account) = 0;
  virtual void SignedOff(int account) = 0;
  virtual void Raise(const std::function<void(MessengerListener&)>& event) = 0;
};

struct PurpleOptions {
  SignOnBurst burst;
  std::chrono::milliseconds patience{1000};      // with a call that is not answered
  std::chrono::milliseconds before_retry{2000};  // after the client was silent
};

// Lives on a thread of its own, where it asks the client one thing after the other: so events keep
// their order, and only this thread waits for a client that hangs.
class PurpleClient : public QObject {
  Q_OBJECT
 public:
  // Takes an event to the listener; events keep their order. Called on the client's thread.
  using Post = std::function<void(std::function<void(PurpleListener&)>)>;
  PurpleClient(QDBusConnection bus, const PurpleOptions& options, Post post);

  // These two may be called on any thread.
  void GiveUp() { bus_.GiveUp(); }
  void SetGroupChats(bool on) { group_chats_ = on; }

  // All others are called on the client's own thread.

  // Follows the client, or waits for one. The user's own state and name are told to `met` as soon
  // as they are known, and from then on what changes.
  using Met = std::function<void(std::int32_t state, const std::string& name)>;
  void Follow(const Met& met);
  // account: 0 for any.
  void Open(int account, const std::string& contact);
  void Test(const std::string& sentence);

 private:
  struct Signal;
  static const Signal kSignals[];

  Q_SLOT void Hear(const QDBusMessage& signal);
  Q_SLOT void OwnerChanged(const QString& name, const QString& before, const QString& now);
  Q_SLOT void Disconnected();

  QString OwnerNow();
  void Lose();
  void LookAgain();
  void LookAtAccounts();
  void LookAtAllContacts();
  void LookAtContacts(int account);
  PurpleBuddy Meet(int handle);
  void NoticeSilence();
  void SignOff(int account);

  void AccountSignedOn(const QVariantList& values);
  void AccountSignedOff(const QVariantList& values);
  void AccountStatusChanged(const QVariantList& values);
  void BuddySignedOn(const QVariantList& values);
  void BuddySignedOff(const QVariantList& values);
  void BuddyStatusChanged(const QVariantList& values);
  void BuddyIdleChanged(const QVariantList& values);
  void ReceivedImMsg(const QVariantList& values);
  void ReceivedChatMsg(const QVariantList& values);
  void FileRecvRequest(const QVariantList& values);
  void ChatInvited(const QVariantList& values);
  void DisplayingEmailNotification(const QVariantList& values);
  void DisplayingEmailsNotification(const QVariantList& values);

  struct OwnAccount {
    std::int32_t state = MSTATE_OFFLINE;
    std::string id;
    std::string name;
  };
  void LookAtOwn(int account);
  void TellOwn();
  void TellConnection();
  void TellReach(int account, const MessengerContact& contact);
  void TellText(const std::optional<Arrival>& arrival);
  void TellMail(const std::string& notice);
  void TellState(const std::optional<StateNews>& news);
  void Raise(std::function<void(MessengerListener&)> event);
  std::int32_t OwnState() const;
  std::string OwnName() const;

  QDBusConnection connection_;
  Post post_;
  PurpleBus bus_;
  PurplePeople people_{bus_};
  PurpleInbox inbox_{bus_, people_};
  PurpleStates states_;
  std::map<int, OwnAccount> accounts_;  // those that are signed on
  QString name_;                        // of the client, as people call it
  Connection told_;
  QTimer retry_;        // asks a silent client again
  bool hangs_ = false;  // the client has not answered, nor has it since
  bool bus_gone_ = false;
  std::atomic<bool> group_chats_ = false;
};

}  // namespace brenwick

// Pidgin and Finch as a messenger: clients that are built on libpurple speak on the session bus.
#pragma once

#include <QDBusConnection>
#include <QObject>
#include <QThread>
#include <QTimer>
#include <deque>
#include <functional>
#include <map>
#include <set>
#include <string>

#include "desktop/purple/PurpleClient.h"
#include "qt/EndOfProgram.h"
#include "sources/MessengerSource.h"

namespace brenwick {

// Attaches when the client comes, and again as often as it comes back. States that are no news are
// raised as found: those of contacts who are there at the user's sign-on, and of those whom the
// user's own sign-off takes away.
class PurpleMessenger : public MessengerSource, private PurpleListener {
 public:
  PurpleMessenger(EndOfProgram& end, QDBusConnection bus, const PurpleOptions& options = {});
  ~PurpleMessenger() override;

  // Waits a second at most for a client that runs, so that MyStatus and MyName know it at once.
  void Attach(MessengerListener& listener) override;
  // Waits for the question that the client is being asked: options.patience at most.
  void Detach() override;
  std::int32_t MyStatus() override { return own_state_; }
  std::string MyName() override { return own_name_; }
  // A contact that no account knows is tried in the first one.
  void InstantMessage(const std::string& contact) override;

  Connection Describe() const override { return connection_; }
  bool Knows(const std::string& contact) override { return accounts_.count(contact) != 0; }
  void Test(const std::string& sentence) override;

  // Whether this messenger raises what the application has to say. Its name is in lower case.
  bool IsHeard(const std::string& application) const;

  // Whether messages of group chats are raised, too; at first they are not. The sender of one is no
  // contact but a participant of the chat: its sign-in name is ROOM/NICK.
  void SetGroupChats(bool on);

 private:
  void ConnectionIs(const Connection& connection, bool there) override;
  void OwnStateIs(std::int32_t state, const std::string& name) override;
  void CanReach(const std::string& contact, int account) override;
  void SignedOff(int account) override;
  void Raise(const std::function<void(MessengerListener&)>& event) override;

  using News = std::function<void(PurpleListener&)>;
  void Keep(News news);
  void Tell();
  void MeetTheClient();

  EndOfProgram& end_;
  QDBusConnection bus_;
  PurpleOptions options_;
  MessengerListener* listener_ = nullptr;
  PurpleClient* client_ = nullptr;  // on the thread, which deletes it at its end
  QThread thread_;
  QObject here_;  // on the program's thread
  std::deque<News> news_;
  QTimer soon_;  // tells of it
  Connection connection_;
  bool there_ = false;  // a client is on the bus
  std::int32_t own_state_ = MSTATE_OFFLINE;
  std::string own_name_;
  std::map<std::string, std::set<int>> accounts_;  // by contact
  bool group_chats_ = false;
};

}  // namespace brenwick

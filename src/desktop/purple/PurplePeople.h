// Who is meant by what a client that is built on libpurple names.
#pragma once

#include <QString>
#include <cstdint>
#include <optional>
#include <vector>

#include "desktop/purple/PurpleBus.h"
#include "platform/MessengerClient.h"
#include "sources/PurpleStates.h"

namespace brenwick {

// Somebody in the list of one of the user's accounts.
struct PurpleBuddy {
  int account = 0;  // 0: there is no such one
  MessengerContact contact;
};

class PurplePeople {
 public:
  explicit PurplePeople(PurpleBus& bus) : bus_(bus) {}

  PurpleBuddy Buddy(int buddy);
  // Nothing where the client does not tell.
  std::optional<Presence> PresenceOfBuddy(int buddy);
  // Of a status, which is one of a contact or of the user.
  std::optional<std::int32_t> StateOfStatus(int status);

  // The sender of a message or an invitation, whose id may name the device, or a place in a group
  // chat.
  MessengerContact Sender(int account, const QString& id);
  // Who is called so in this group chat. The sign-in name is no contact's.
  MessengerContact InChat(int conversation, const QString& nick);
  bool IsOwnNick(int conversation, const QString& nick);

  // The user's own id and name in an account.
  QString OwnId(int account);
  QString OwnName(int account);

 private:
  PurpleBus& bus_;
};

}  // namespace brenwick

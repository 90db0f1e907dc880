// Finds the person behind a handle or an id of libpurple.
#pragma once

#include <QString>
#include <cstdint>
#include <optional>
#include <vector>

#include "desktop/purple/PurpleBus.h"
#include "platform/MessengerClient.h"
#include "sources/PurpleStates.h"

namespace brenwick {

// A contact in the list of one of the user's accounts.
struct PurpleBuddy {
  int account = 0;  // 0: there is no such contact
  MessengerContact contact;
};

class PurplePeople {
 public:
  explicit PurplePeople(PurpleBus& bus) : bus_(bus) {}

  PurpleBuddy Buddy(int buddy);
  // Nothing where the client does not tell.
  std::optional<Presence> PresenceOfBuddy(int buddy);
  // The state that a status stands for; the status is a contact's or the user's.
  std::optional<std::int32_t> StateOfStatus(int status);

  // The sender of a message or an invitation, whose id may name the device, or a place in a group
  // chat.
  MessengerContact Sender(int account, const QString& id);
  // The participant of a group chat who has this nick. The sign-in name is that of no contact.
  MessengerContact InChat(int conversation, const QString& nick);
  bool IsOwnNick(int conversation, const QString& nick);

  // The user's own id and name in an account.
  QString OwnId(int account);
  QString OwnName(int account);

 private:
  PurpleBus& bus_;
};

}  // namespace brenwick

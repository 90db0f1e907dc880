#include "desktop/purple/PurplePeople.h"

#include "desktop/purple/PurpleText.h"

namespace brenwick {
namespace {

constexpr int kChat = 2;  // of the kinds of conversations

// The id without the device, for a client that does not say it itself.
QString WithoutDevice(const QString& id) { return id.section('/', 0, 0); }

}  // namespace

PurpleBuddy PurplePeople::Buddy(int buddy) {
  const QString id = bus_.Text("PurpleBuddyGetName", {buddy});
  if (NameOf(id).empty()) return {};
  return {bus_.Number("PurpleBuddyGetAccount", {buddy}),
          HonestContact(id, bus_.Text("PurpleBuddyGetAlias", {buddy}))};
}

std::optional<Presence> PurplePeople::PresenceOfBuddy(int buddy) {
  const int presence = bus_.Number("PurpleBuddyGetPresence", {buddy});
  if (presence == 0) return std::nullopt;
  const auto state = StateOfStatus(bus_.Number("PurplePresenceGetActiveStatus", {presence}));
  if (!state) return std::nullopt;
  return Presence{*state, bus_.Number("PurplePresenceIsIdle", {presence}) != 0};
}

std::optional<std::int32_t> PurplePeople::StateOfStatus(int status) {
  if (status == 0) return std::nullopt;
  const int type = bus_.Number("PurpleStatusGetType", {status});
  if (type == 0) return std::nullopt;
  return StateOfPrimitive(bus_.Number("PurpleStatusTypeGetPrimitive", {type}));
}

MessengerContact PurplePeople::Sender(int account, const QString& id) {
  if (const int buddy = bus_.Number("PurpleFindBuddy", {account, id})) {
    const PurpleBuddy known = Buddy(buddy);
    if (known.account != 0) return known.contact;
  }
  const QString room = WithoutDevice(id);
  if (room != id && bus_.Number("PurpleFindConversationWithAccount", {kChat, room, account}) != 0) {
    return HonestContact(id, id.mid(room.size() + 1));
  }
  QString plain = bus_.Text("PurpleNormalize", {account, id});
  if (plain.isEmpty()) plain = room;
  return HonestContact(plain, plain);
}

MessengerContact PurplePeople::InChat(int conversation, const QString& nick) {
  return HonestContact(bus_.Text("PurpleConversationGetName", {conversation}) + '/' + nick, nick);
}

bool PurplePeople::IsOwnNick(int conversation, const QString& nick) {
  const int chat = bus_.Number("PurpleConversationGetChatData", {conversation});
  return chat != 0 && bus_.Text("PurpleConvChatGetNick", {chat}) == nick;
}

QString PurplePeople::OwnId(int account) {
  const QString name = bus_.Text("PurpleAccountGetUsername", {account});
  const QString plain = bus_.Text("PurpleNormalize", {account, name});
  return plain.isEmpty() ? WithoutDevice(name) : plain;
}

QString PurplePeople::OwnName(int account) {
  const QString alias = bus_.Text("PurpleAccountGetAlias", {account});
  return alias.isEmpty() ? OwnId(account) : alias;
}

}  // namespace brenwick

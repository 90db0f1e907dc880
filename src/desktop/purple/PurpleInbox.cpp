#include "desktop/purple/PurpleInbox.h"

#include <QDateTime>
#include <utility>

#include "desktop/purple/PurpleText.h"

namespace brenwick {
namespace {

constexpr int kIm = 1;       // of the kinds of conversations
constexpr int kReceive = 2;  // of the directions of a file

enum MessageFlag : unsigned {
  kSent = 0x1,
  kSystem = 0x4,
  kAutoReply = 0x8,
  kError = 0x200,
  kDelayed = 0x400,
  kNotify = 0x2000,
};
constexpr unsigned kNotSaid = kSent | kSystem | kAutoReply | kError | kNotify;

// The clocks of the client and of the program are read in whole seconds.
constexpr std::int64_t kRounding = 1;
// The seconds after the sign-on in which messages that were kept for the user arrive.
constexpr std::int64_t kDelivery = 60;

}  // namespace

// The signal of the sign-on may arrive late, so the client is asked for the time.
void PurpleInbox::SignOn(int account) {
  const std::int64_t now = QDateTime::currentSecsSinceEpoch();
  const int presence = bus_.Number("PurpleAccountGetPresence", {account});
  const std::int64_t told =
      presence == 0 ? 0 : bus_.Number("PurplePresenceGetLoginTime", {presence});
  signed_on_[account] = told > 0 && told <= now ? told : now;
}

void PurpleInbox::Forget() {
  signed_on_.clear();
  said_.clear();
}

std::optional<Arrival> PurpleInbox::ReceivedImMsg(const QVariantList& values) {
  const int account = values[0].toInt();
  const QString sender = values[1].toString();
  const QString message = values[2].toString();
  if ((values[4].toUInt() & kNotSaid) != 0 || IsOld(account, sender, message)) return std::nullopt;
  return Arrival{account, people_.Sender(account, sender), PlainMessage(message)};
}

// A room repeats earlier messages for a user who enters it.
std::optional<Arrival> PurpleInbox::ReceivedChatMsg(const QVariantList& values) {
  const QString nick = values[1].toString();
  const int conversation = values[3].toInt();
  if ((values[4].toUInt() & (kNotSaid | kDelayed)) != 0) return std::nullopt;
  if (people_.IsOwnNick(conversation, nick)) return std::nullopt;
  return Arrival{values[0].toInt(), people_.InChat(conversation, nick),
                 PlainMessage(values[2].toString())};
}

std::optional<Arrival> PurpleInbox::FileRecvRequest(const QVariantList& values) {
  const int transfer = values[0].toInt();
  if (bus_.Number("PurpleXferGetType", {transfer}) != kReceive) return std::nullopt;
  const int account = bus_.Number("PurpleXferGetAccount", {transfer});
  const QString sender = bus_.Text("PurpleXferGetRemoteUser", {transfer});
  if (account == 0 || sender.isEmpty()) return std::nullopt;
  return Arrival{account, people_.Sender(account, sender),
                 NameOf(bus_.Text("PurpleXferGetFilename", {transfer}))};
}

// The invitation may come from a place in the chat itself.
std::optional<Arrival> PurpleInbox::ChatInvited(const QVariantList& values) {
  const int account = values[0].toInt();
  const QString sender = values[1].toString();
  const QString room = values[2].toString();
  const bool from_room = sender.startsWith(room + '/');
  return Arrival{account,
                 from_room ? HonestContact(sender, sender.mid(room.size() + 1))
                           : people_.Sender(account, sender),
                 NameOf(room)};
}

// A message that was kept for the user arrives as if it were new; only the conversation's history
// tells when it was sent.
bool PurpleInbox::IsOld(int account, const QString& sender, const QString& message) {
  const auto signed_on = signed_on_.find(account);
  if (signed_on == signed_on_.end()) return false;
  if (QDateTime::currentSecsSinceEpoch() - signed_on->second > kDelivery) {
    signed_on_.erase(signed_on);
    if (signed_on_.empty()) said_.clear();
    return false;
  }
  const std::int64_t sent = TimeOf(account, sender, message);
  return sent != 0 && sent + kRounding < signed_on->second;
}

// The history begins with the newest message. Any number may have arrived after this one.
std::int64_t PurpleInbox::TimeOf(int account, const QString& sender, const QString& message) {
  const int conversation = bus_.Number("PurpleFindConversationWithAccount", {kIm, sender, account});
  if (conversation == 0) return 0;
  for (const int each : bus_.Handles("PurpleConversationGetMessageHistory", {conversation})) {
    const Said& said = SaidIn(each);
    if (bus_.Silent()) {
      said_.erase(each);
      return 0;
    }
    if (said.text == message) return said.time;
  }
  return 0;
}

// Asks for each message of the history once: the history is searched for every message that
// arrives.
const PurpleInbox::Said& PurpleInbox::SaidIn(int handle) {
  const auto known = said_.find(handle);
  if (known != said_.end()) return known->second;
  Said said{bus_.Text("PurpleConversationMessageGetMessage", {handle}),
            bus_.Number("PurpleConversationMessageGetTimestamp", {handle})};
  return said_[handle] = std::move(said);
}

}  // namespace brenwick

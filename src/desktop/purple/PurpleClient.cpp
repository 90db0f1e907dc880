#include "desktop/purple/PurpleClient.h"

#include <QStringList>
#include <utility>

#include "desktop/bus/BusName.h"
#include "desktop/purple/PurpleText.h"
#include "sources/MailService.h"

namespace brenwick {
namespace {

const QString kAnyClient = QStringLiteral("Pidgin or Finch");
const QString kBus = QStringLiteral("org.freedesktop.DBus");
const QString kLocal = QStringLiteral("org.freedesktop.DBus.Local");
const QString kLocalPath = QStringLiteral("/org/freedesktop/DBus/Local");
const QString kBusPath = QStringLiteral("/org/freedesktop/DBus");

PurpleStates::Moment Now() { return std::chrono::steady_clock::now(); }

QString NameOfClient(const QString& ui) {
  if (ui == "gtk-gaim") return QStringLiteral("Pidgin");
  if (ui == "gnt-purple") return QStringLiteral("Finch");
  return kAnyClient;
}

}  // namespace

struct PurpleClient::Signal {
  const char* name;
  const char* signature;
  void (PurpleClient::*handler)(const QVariantList& values);
};

// The lists of senders of DisplayingEmailsNotification are addresses in the client's memory.
const PurpleClient::Signal PurpleClient::kSignals[] = {
    {"AccountSignedOn", "i", &PurpleClient::AccountSignedOn},
    {"AccountSignedOff", "i", &PurpleClient::AccountSignedOff},
    {"AccountStatusChanged", "iii", &PurpleClient::AccountStatusChanged},
    {"BuddySignedOn", "i", &PurpleClient::BuddySignedOn},
    {"BuddySignedOff", "i", &PurpleClient::BuddySignedOff},
    {"BuddyStatusChanged", "iii", &PurpleClient::BuddyStatusChanged},
    {"BuddyIdleChanged", "iii", &PurpleClient::BuddyIdleChanged},
    {"ReceivedImMsg", "issiu", &PurpleClient::ReceivedImMsg},
    {"ReceivedChatMsg", "issiu", &PurpleClient::ReceivedChatMsg},
    {"FileRecvRequest", "i", &PurpleClient::FileRecvRequest},
    {"ChatInvited", "isssi", &PurpleClient::ChatInvited},
    {"DisplayingEmailNotification", "ssss", &PurpleClient::DisplayingEmailNotification},
    {"DisplayingEmailsNotification", "iiiiu", &PurpleClient::DisplayingEmailsNotification},
};

PurpleClient::PurpleClient(QDBusConnection bus, const PurpleOptions& options, Post post)
    : connection_(std::move(bus)),
      post_(std::move(post)),
      bus_(connection_, options.patience),
      states_(options.burst),
      name_(kAnyClient),
      retry_(this) {
  retry_.setSingleShot(true);
  retry_.setInterval(options.before_retry);
  connect(&retry_, &QTimer::timeout, this, &PurpleClient::LookAgain);
}

// Signals of every sender are received, and those of others than the client are dropped: so no
// signal is missed while the client is still being looked for.
void PurpleClient::Follow(const Met& met) {
  connection_.connect(kBus, kBusPath, kBus, "NameOwnerChanged", {kPurpleService}, "sss", this,
                      SLOT(OwnerChanged(QString, QString, QString)));
  connection_.connect({}, kLocalPath, kLocal, "Disconnected", this, SLOT(Disconnected()));
  for (const Signal& signal : kSignals) {
    connection_.connect({}, kPurplePath, kPurpleInterface, signal.name, this,
                        SLOT(Hear(QDBusMessage)));
  }
  bus_.SetClient(OwnerNow());
  LookAtAccounts();
  met(OwnState(), OwnName());
  TellOwn();
  LookAtAllContacts();
  NoticeSilence();
}

QString PurpleClient::OwnerNow() {
  QDBusMessage call = QDBusMessage::createMethodCall(kBus, kBusPath, kBus, "GetNameOwner");
  call << kPurpleService;
  const QDBusMessage answer =
      connection_.call(call, QDBus::Block, static_cast<int>(kBusPatience.count()));
  return answer.type() == QDBusMessage::ReplyMessage ? answer.arguments().value(0).toString()
                                                     : QString();
}

void PurpleClient::OwnerChanged(const QString& /*name*/, const QString& /*before*/,
                                const QString& now) {
  if (now == bus_.Client()) return;
  Lose();
  bus_.SetClient(now);
  LookAgain();
}

void PurpleClient::Disconnected() {
  bus_gone_ = true;
  Lose();
  TellConnection();
}

void PurpleClient::Lose() {
  bus_.SetClient({});
  retry_.stop();
  hangs_ = false;
  name_ = kAnyClient;
  while (!accounts_.empty()) SignOff(accounts_.begin()->first);
  inbox_.Forget();
}

// The client may have been silent meanwhile; states that have changed since are found, not
// announced.
void PurpleClient::LookAgain() {
  LookAtAccounts();
  TellOwn();
  LookAtAllContacts();
  NoticeSilence();
}

void PurpleClient::LookAtAccounts() {
  if (bus_.Client().isEmpty()) return;
  const QString ui = bus_.Text("PurpleCoreGetUi");
  if (!bus_.Silent()) name_ = NameOfClient(ui);
  for (const int account : bus_.Handles("PurpleAccountsGetAllActive")) {
    if (bus_.Number("PurpleAccountIsConnected", {account}) != 0) {
      LookAtOwn(account);
    } else if (!bus_.Silent()) {
      SignOff(account);
    }
  }
}

void PurpleClient::LookAtOwn(int account) {
  OwnAccount& own = accounts_[account];
  own.id = NameOf(people_.OwnId(account));
  own.name = NameOf(people_.OwnName(account));
  if (own.name.empty()) own.name = own.id;
  const int status = bus_.Number("PurpleAccountGetActiveStatus", {account});
  own.state = people_.StateOfStatus(status).value_or(MSTATE_ONLINE);
}

void PurpleClient::LookAtAllContacts() {
  for (const auto& [account, own] : accounts_) LookAtContacts(account);
}

void PurpleClient::LookAtContacts(int account) {
  for (const int handle : bus_.Handles("PurpleFindBuddies", {account, QString()})) {
    const PurpleBuddy buddy = Meet(handle);
    const auto presence = people_.PresenceOfBuddy(handle);
    if (buddy.account == 0 || !presence) continue;
    TellState(states_.Find(buddy.account, buddy.contact, *presence));
  }
}

PurpleBuddy PurpleClient::Meet(int handle) {
  const PurpleBuddy buddy = people_.Buddy(handle);
  if (buddy.account != 0) TellReach(buddy.account, buddy.contact);
  return buddy;
}

void PurpleClient::NoticeSilence() {
  if (bus_.TakeSilence()) {
    hangs_ = true;
    if (!retry_.isActive()) retry_.start();
  } else if (!retry_.isActive()) {
    hangs_ = false;
  }
  TellConnection();
}

void PurpleClient::Hear(const QDBusMessage& signal) {
  if (bus_.Client().isEmpty() || signal.service() != bus_.Client()) return;
  for (const Signal& each : kSignals) {
    if (signal.member() != each.name || signal.signature() != each.signature) continue;
    (this->*each.handler)(signal.arguments());
  }
  NoticeSilence();
}

void PurpleClient::AccountSignedOn(const QVariantList& values) {
  const int account = values[0].toInt();
  inbox_.SignOn(account);
  states_.SignOn(account, Now());
  LookAtOwn(account);
  TellOwn();
  LookAtContacts(account);
}

void PurpleClient::AccountSignedOff(const QVariantList& values) { SignOff(values[0].toInt()); }

// The client sends no signal for the contacts that go with the account.
void PurpleClient::SignOff(int account) {
  if (accounts_.erase(account) == 0) return;
  post_([account](PurpleListener& listener) { listener.SignedOff(account); });
  for (const StateNews& news : states_.SignOff(account)) TellState(news);
  TellOwn();
}

void PurpleClient::AccountStatusChanged(const QVariantList& values) {
  const auto account = accounts_.find(values[0].toInt());
  const auto state = people_.StateOfStatus(values[2].toInt());
  if (account == accounts_.end() || !state) return;
  account->second.state = *state;
  TellOwn();
}

void PurpleClient::BuddySignedOn(const QVariantList& values) {
  const PurpleBuddy buddy = Meet(values[0].toInt());
  const auto presence = people_.PresenceOfBuddy(values[0].toInt());
  if (buddy.account == 0 || !presence) return;
  TellState(states_.Appear(buddy.account, buddy.contact, *presence, Now()));
}

void PurpleClient::BuddySignedOff(const QVariantList& values) {
  const PurpleBuddy buddy = Meet(values[0].toInt());
  if (buddy.account == 0) return;
  TellState(states_.Appear(buddy.account, buddy.contact, Presence{}, Now()));
}

// The signal's state is the one that counts; the client may already be in another.
void PurpleClient::BuddyStatusChanged(const QVariantList& values) {
  const PurpleBuddy buddy = Meet(values[0].toInt());
  const auto state = people_.StateOfStatus(values[2].toInt());
  if (buddy.account == 0 || !state) return;
  TellState(states_.Change(buddy.account, buddy.contact, *state, Now()));
}

void PurpleClient::BuddyIdleChanged(const QVariantList& values) {
  const PurpleBuddy buddy = Meet(values[0].toInt());
  if (buddy.account == 0) return;
  TellState(states_.ChangeIdle(buddy.account, buddy.contact, values[2].toInt() != 0, Now()));
}

void PurpleClient::ReceivedImMsg(const QVariantList& values) {
  const auto arrival = inbox_.ReceivedImMsg(values);
  if (!arrival) return;
  TellReach(arrival->account, arrival->from);
  TellText(arrival);
}

void PurpleClient::ReceivedChatMsg(const QVariantList& values) {
  if (group_chats_) TellText(inbox_.ReceivedChatMsg(values));
}

void PurpleClient::FileRecvRequest(const QVariantList& values) {
  const auto offer = inbox_.FileRecvRequest(values);
  if (!offer) return;
  Raise([offer = *offer](MessengerListener& listener) {
    listener.OnFileTransferInviteReceived(offer.from, offer.text);
  });
}

void PurpleClient::ChatInvited(const QVariantList& values) {
  const auto invitation = inbox_.ChatInvited(values);
  if (!invitation) return;
  Raise([invitation = *invitation](MessengerListener& listener) {
    listener.OnAppInviteReceived(invitation.from, invitation.text);
  });
}

void PurpleClient::DisplayingEmailNotification(const QVariantList& values) {
  TellMail(MailNotice(values[1].toString()));
}

void PurpleClient::DisplayingEmailsNotification(const QVariantList& values) {
  if (const unsigned count = values[4].toUInt()) TellMail(InboxNotice(count));
}

void PurpleClient::Open(int account, const std::string& contact) {
  if (account == 0 && !accounts_.empty()) account = accounts_.begin()->first;
  const int conversation =
      bus_.Number("PurpleConversationNew", {1, account, QString::fromStdString(contact)});
  if (conversation != 0) bus_.Do("PurpleConversationPresent", {conversation});
  NoticeSilence();
}

void PurpleClient::Test(const std::string& sentence) {
  if (bus_.Text("PurpleCoreGetVersion").isEmpty()) return;
  Raise([sentence, name = name_.toStdString()](MessengerListener& listener) {
    listener.OnTextReceived({"", name}, "", sentence);
  });
}

std::int32_t PurpleClient::OwnState() const {
  std::vector<std::int32_t> states;
  for (const auto& [account, own] : accounts_) states.push_back(own.state);
  return BestState(states);
}

std::string PurpleClient::OwnName() const {
  return accounts_.empty() ? std::string() : accounts_.begin()->second.name;
}

void PurpleClient::TellOwn() {
  TellConnection();
  post_([state = OwnState(), name = OwnName()](PurpleListener& listener) {
    listener.OwnStateIs(state, name);
  });
}

void PurpleClient::TellConnection() {
  Connection now{name_.toStdString(), ConnectionState::Attached, ""};
  if (bus_.Client().isEmpty()) now.State = ConnectionState::Waiting;
  for (const auto& [account, own] : accounts_) {
    if (!now.Detail.empty()) now.Detail += ", ";
    now.Detail += own.id;
  }
  if (hangs_) now = {now.Name, ConnectionState::Failed, "It does not answer"};
  if (bus_gone_) now = {now.Name, ConnectionState::Failed, "The session bus has gone"};
  if (now == told_) return;
  told_ = now;
  post_([now, there = !bus_.Client().isEmpty()](PurpleListener& listener) {
    listener.ConnectionIs(now, there);
  });
}

void PurpleClient::TellReach(int account, const MessengerContact& contact) {
  post_([account, id = contact.SigninName](PurpleListener& listener) {
    listener.CanReach(id, account);
  });
}

void PurpleClient::TellText(const std::optional<Arrival>& arrival) {
  if (!arrival) return;
  Raise([arrival = *arrival](MessengerListener& listener) {
    listener.OnTextReceived(arrival.from, "", arrival.text);
  });
}

void PurpleClient::TellMail(const std::string& notice) {
  Raise([notice](MessengerListener& listener) {
    listener.OnTextReceived({"", kMailService}, "", notice);
  });
}

void PurpleClient::TellState(const std::optional<StateNews>& news) {
  if (!news) return;
  Raise([news = *news](MessengerListener& listener) {
    if (news.found) {
      listener.OnUserStateFound(news.contact, news.state);
    } else {
      listener.OnUserStateChanged(news.contact, news.state);
    }
  });
}

void PurpleClient::Raise(std::function<void(MessengerListener&)> event) {
  post_([event = std::move(event)](PurpleListener& listener) { listener.Raise(event); });
}

}  // namespace brenwick

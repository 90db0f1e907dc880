#include "desktop/feed/FeedMessenger.h"

#include <QDBusConnectionInterface>
#include <QDBusError>
#include <QDBusPendingCall>
#include <utility>

#include "base/Failure.h"
#include "base/ProgramState.h"
#include "base/Text.h"
#include "qt/Strings.h"

namespace brenwick {
namespace {

const QString kService = QStringLiteral("org.brenwick.Brenwick1");
const QString kPath = QStringLiteral("/org/brenwick/Brenwick1");
const QString kError = kService + ".Error.";
const QString kTester = QStringLiteral("brenwick-test");
constexpr const char* kMessage = "Message";
constexpr const char* kState = "State";
constexpr const char* kConversation = "ConversationWanted";
constexpr const char* kSignature = "sss";

std::string FromQt(const QVariant& value) { return Repaired(value.toString().toStdString()); }

const char* LastArgument(const QString& method) { return method == kMessage ? "text" : "state"; }

QDBusMessage WrongArguments(const QDBusMessage& call) {
  return call.createErrorReply(
      QDBusError::InvalidArgs,
      call.member() + " takes three texts: contact, name, " + LastArgument(call.member()));
}

FeedError TooMuch(Admission admission) {
  if (admission == Admission::TooMany) {
    return {"TooManyEvents", "only " + std::to_string(FeedLimit::kMostEvents) +
                                 " events a second are taken from one sender"};
  }
  return {"TooManySenders", "only " + std::to_string(FeedLimit::kMostSenders) +
                                " senders are heard at the same time"};
}

}  // namespace

// One that was called for, with what is wrong about it.
struct FeedMessenger::Event {
  explicit Event(const QDBusMessage& call) {
    const QVariantList values = call.arguments();
    const MessengerContact given{FromQt(values.at(0)), FromQt(values.at(1))};
    contact = FeedContact(given);
    error = CheckContact(given);
    const std::string last = FromQt(values.at(2));
    if (call.member() == kMessage) {
      text = last;
      if (!error) error = CheckText(text);
      return;
    }
    state = FeedState(last);
    if (error || state) return;
    error = FeedError{"UnknownState", "the state is none of these: " + FeedStateNames()};
  }

  MessengerContact contact;
  std::string text;
  std::optional<std::int32_t> state;
  std::optional<FeedError> error;
  bool is_test = false;
};

FeedMessenger::FeedMessenger(EndOfProgram& end, QDBusConnection bus, std::string busAddress,
                             std::function<FeedLimit::Time()> now)
    : end_(end),
      bus_(std::move(bus)),
      bus_address_(std::move(busAddress)),
      limit_(std::move(now)) {}

FeedMessenger::~FeedMessenger() { FeedMessenger::Detach(); }

void FeedMessenger::Attach(MessengerListener& listener) {
  listener_ = &listener;
  if (!bus_.isConnected()) return Fail("there is no session bus");
  bus_.connect({}, "/org/freedesktop/DBus/Local", "org.freedesktop.DBus.Local", "Disconnected",
               this, SLOT(Disconnected()));
  has_name_ = bus_.registerVirtualObject(kPath, this) && bus_.registerService(kService);
  if (!has_name_) {
    bus_.unregisterObject(kPath);
    return Fail("another program has the name " + kService.toStdString());
  }
  if (Changed) Changed();
}

void FeedMessenger::Detach() {
  listener_ = nullptr;
  if (std::exchange(has_name_, false)) {
    bus_.unregisterService(kService);
    bus_.unregisterObject(kPath);
  }
  if (!std::exchange(tester_, {}).isEmpty()) QDBusConnection::disconnectFromBus(kTester);
}

std::int32_t FeedMessenger::MyStatus() {
  return has_come_ && has_name_ ? MSTATE_ONLINE : MSTATE_OFFLINE;
}

bool FeedMessenger::Knows(const std::string& contact) {
  return has_name_ && contacts_.contains(contact);
}

// Only the script knows where it talks with this contact.
void FeedMessenger::InstantMessage(const std::string& contact) {
  if (!has_name_) throw Failure(kInvalidCall, "The session bus has gone", kTitle);
  bus_.send(QDBusMessage::createSignal(kPath, kService, kConversation) << ToQt(contact));
}

Connection FeedMessenger::Describe() const {
  if (!failure_.empty()) return {kName, ConnectionState::Failed, failure_};
  return {kName, has_come_ ? ConnectionState::Attached : ConnectionState::Waiting,
          kService.toStdString()};
}

void FeedMessenger::Fail(std::string why) {
  failure_ = std::move(why);
  if (Changed) Changed();
}

void FeedMessenger::Disconnected() {
  end_.Guard([this] {
    if (!std::exchange(has_name_, false)) return;
    Fail("the session bus has gone");
    if (has_come_ && listener_ != nullptr) listener_->OnLocalStateChangeResult(MSTATE_OFFLINE);
  });
}

// A call from a connection to itself would never see the bus.
void FeedMessenger::Test(const std::string& sentence) {
  if (!has_name_) return;
  const QDBusConnection tester = tester_.isEmpty()
                                     ? QDBusConnection::connectToBus(ToQt(bus_address_), kTester)
                                     : QDBusConnection(kTester);
  tester_ = tester.baseService();
  QDBusMessage call = QDBusMessage::createMethodCall(kService, kPath, kService, kMessage);
  tester.asyncCall(call << kService << QString(kName) << ToQt(sentence));
}

QString FeedMessenger::introspect(const QString& /*path*/) const {
  QString xml = "<interface name=\"" + kService + "\">\n";
  for (const char* method : {kMessage, kState}) {
    xml += QString("<method name=\"%1\">").arg(method);
    for (const char* argument : {"contact", "name", LastArgument(method)}) {
      xml += QString("<arg name=\"%1\" type=\"s\" direction=\"in\"/>").arg(argument);
    }
    xml += "</method>\n";
  }
  xml += QString("<signal name=\"%1\"><arg name=\"contact\" type=\"s\"/></signal>\n")
             .arg(kConversation);
  return xml + "</interface>\n";
}

bool FeedMessenger::handleMessage(const QDBusMessage& call, const QDBusConnection& /*bus*/) {
  const bool mine = call.interface().isEmpty() || call.interface() == kService;
  const bool known = call.member() == kMessage || call.member() == kState;
  if (!mine || !known) return false;
  if (call.signature() != kSignature) {
    if (call.isReplyRequired()) bus_.send(WrongArguments(call));
    return true;
  }
  Event event(call);
  event.is_test = !tester_.isEmpty() && call.service() == tester_;
  if (!event.error) event.error = Refusal(call, event);
  Answer(call, event);
  if (!event.error) end_.Guard([&] { Raise(event); });
  return true;
}

std::optional<FeedError> FeedMessenger::Refusal(const QDBusMessage& call, const Event& event) {
  const bool known = event.is_test || contacts_.contains(event.contact.SigninName);
  if (!known && contacts_.size() >= kMostContacts) {
    return FeedError{"TooManyContacts", "only " + std::to_string(kMostContacts) +
                                            " contacts are taken until the program starts again"};
  }
  const Admission admission = limit_.Admit(call.service().toStdString());
  if (admission == Admission::Granted) return std::nullopt;
  return TooMuch(admission);
}

// The answer goes out before the event is raised, which may take as long as a user thinks.
void FeedMessenger::Answer(const QDBusMessage& call, const Event& event) {
  if (!call.isReplyRequired()) return;
  bus_.send(event.error ? call.createErrorReply(kError + ToQt(event.error->name),
                                                ToQt(event.error->message))
                        : call.createReply());
}

void FeedMessenger::Come() {
  if (std::exchange(has_come_, true)) return;
  if (Changed) Changed();
  listener_->OnLocalStateChangeResult(MSTATE_ONLINE);
}

void FeedMessenger::Raise(const Event& event) {
  if (listener_ == nullptr) return;
  if (event.is_test) return listener_->OnTextReceived({"", kName}, "", event.text);
  contacts_.insert(event.contact.SigninName);
  Come();
  // The handler may have ended the listening.
  if (listener_ == nullptr) return;
  if (event.state) {
    listener_->OnUserStateChanged(event.contact, *event.state);
  } else {
    listener_->OnTextReceived(event.contact, "", event.text);
  }
}

}  // namespace brenwick

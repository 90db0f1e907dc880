#include "desktop/feed/FeedMessenger.h"

#include <QDBusConnectionInterface>
#include <QDBusError>
#include <stdexcept>
#include <utility>
#include <variant>

#include "base/Failure.h"
#include "base/ProgramState.h"
#include "base/Text.h"
#include "desktop/bus/BusName.h"
#include "linux/BusConnecting.h"
#include "qt/Strings.h"

namespace brenwick {
namespace {

const QString kService = QStringLiteral("org.brenwick.Brenwick1");
const QString kPath = QStringLiteral("/org/brenwick/Brenwick1");
const QString kError = kService + ".Error.";
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

FeedRules::Result EventOf(const QDBusMessage& call) {
  const QVariantList values = call.arguments();
  const MessengerContact contact{FromQt(values.at(0)), FromQt(values.at(1))};
  const std::string last = FromQt(values.at(2));
  return call.member() == kMessage ? FeedRules::Message(contact, last)
                                   : FeedRules::State(contact, last);
}

}  // namespace

FeedMessenger::FeedMessenger(EndOfProgram& end, QDBusConnection bus, std::string busAddress,
                             std::function<FeedRules::Time()> now)
    : end_(end),
      bus_(std::move(bus)),
      bus_address_(std::move(busAddress)),
      rules_(std::move(now)) {}

FeedMessenger::~FeedMessenger() { FeedMessenger::Detach(); }

void FeedMessenger::Attach(MessengerListener& listener) {
  listener_ = &listener;
  if (!bus_.isConnected()) return Fail("there is no session bus");
  bus_.connect({}, "/org/freedesktop/DBus/Local", "org.freedesktop.DBus.Local", "Disconnected",
               this, SLOT(Disconnected()));
  has_name_ = bus_.registerVirtualObject(kPath, this) && TakeBusName(bus_, kService);
  if (!has_name_) {
    bus_.unregisterObject(kPath);
    return Fail("another program has the name " + kService.toStdString());
  }
  if (Changed) Changed();
}

void FeedMessenger::Detach() {
  listener_ = nullptr;
  if (std::exchange(has_name_, false)) {
    ReleaseBusName(bus_, kService);
    bus_.unregisterObject(kPath);
  }
  tester_.reset();
}

std::int32_t FeedMessenger::MyStatus() {
  return has_come_ && has_name_ ? MSTATE_ONLINE : MSTATE_OFFLINE;
}

bool FeedMessenger::Knows(const std::string& contact) { return has_name_ && rules_.Knows(contact); }

// Only the script knows where the conversation with this contact takes place.
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

// The call comes from another connection: Qt delivers a call to its own connection without the bus.
void FeedMessenger::Test(const std::string& sentence) {
  if (!has_name_) return;
  try {
    if (!tester_ || !tester_->IsOpen()) tester_ = ConnectInTime(bus_address_);
    const std::string service = kService.toStdString();
    const std::string path = kPath.toStdString();
    tester_->Send(*CallWithTexts({service.c_str(), path.c_str(), service.c_str(), kMessage},
                                 {service, kName, sentence}));
  } catch (const std::runtime_error&) {
    // The bus is going, which the other connection is about to tell.
  }
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
  const bool is_test = tester_ && call.service() == ToQt(tester_->Name());
  const FeedRules::Result called = EventOf(call);
  const auto* event = std::get_if<FeedEvent>(&called);
  const auto refusal =
      event == nullptr ? std::get<FeedError>(called) : Refusal(call, *event, is_test);
  Answer(call, refusal);
  if (!refusal) end_.Guard([&] { is_test ? RaiseTest(event->text) : Raise(*event); });
  return true;
}

std::optional<FeedError> FeedMessenger::Refusal(const QDBusMessage& call, const FeedEvent& event,
                                                bool is_test) {
  const std::string sender = call.service().toStdString();
  return is_test ? rules_.AdmitTest(sender) : rules_.Admit(sender, event);
}

// The answer goes out before the event is raised, which may take as long as a user thinks.
void FeedMessenger::Answer(const QDBusMessage& call, const std::optional<FeedError>& refusal) {
  if (!call.isReplyRequired()) return;
  bus_.send(refusal ? call.createErrorReply(kError + ToQt(refusal->name), ToQt(refusal->message))
                    : call.createReply());
}

void FeedMessenger::Come() {
  if (std::exchange(has_come_, true)) return;
  if (Changed) Changed();
  listener_->OnLocalStateChangeResult(MSTATE_ONLINE);
}

void FeedMessenger::Raise(const FeedEvent& event) {
  if (listener_ == nullptr) return;
  Come();
  // The handler may have detached.
  if (listener_ == nullptr) return;
  if (event.state) {
    listener_->OnUserStateChanged(event.contact, *event.state);
  } else {
    listener_->OnTextReceived(event.contact, "", event.text);
  }
}

void FeedMessenger::RaiseTest(const std::string& text) {
  if (listener_ != nullptr) listener_->OnTextReceived({"", kName}, "", text);
}

}  // namespace brenwick

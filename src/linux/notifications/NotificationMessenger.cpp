#include "linux/notifications/NotificationMessenger.h"

#include <stdexcept>
#include <utility>

#include "base/Failure.h"
#include "base/ProgramState.h"
#include "base/Text.h"
#include "linux/notifications/NotificationCalls.h"
#include "sources/ForeignText.h"
#include "sources/MailApplications.h"
#include "sources/MailService.h"

namespace brenwick {
namespace {

constexpr std::size_t kLongestApplication = 128;  // bytes
constexpr std::size_t kLongestName = 1024;
constexpr int kAtATime = 10;  // messages of the bus

std::string Name(const std::string& text, std::size_t longest) {
  return std::string(Trimmed(FirstBytes(OneLine(text), longest)));
}

// As people know it. One that says no name of its own goes by its desktop entry, and one without
// either cannot be chosen.
std::string ApplicationOf(const Notification& notification) {
  const std::string name = Name(notification.application, kLongestApplication);
  return name.empty() ? Name(notification.desktop_entry, kLongestApplication) : name;
}

// Mail programs write the sender into the heading, or into a line of its own.
std::string MailSender(const Notification& notification, const std::string& body) {
  constexpr std::string_view kFrom = "FROM:";
  std::size_t start = 0;
  while (start < body.size()) {
    const std::size_t end = body.find('\n', start);
    const std::string line = body.substr(start, end - start);
    if (UpperCase(FirstCharacters(line, kFrom.size())) == kFrom) {
      return Name(line.substr(kFrom.size()), kLongestName);
    }
    if (end == std::string::npos) break;
    start = end + 1;
  }
  return Name(notification.summary, kLongestName);
}

std::shared_ptr<BusConnection> Monitor(const std::string& address) {
  auto monitor = std::make_shared<BusConnection>(address);
  try {
    monitor->Call(*MonitorNotifications());
  } catch (const std::runtime_error& refusal) {
    throw std::runtime_error(std::string("the bus lets nobody see them: ") + refusal.what());
  }
  return monitor;
}

}  // namespace

NotificationMessenger::NotificationMessenger(std::string busAddress, RegistryStore& store,
                                             ReadinessWatch& watch)
    : bus_address_(std::move(busAddress)), watch_(watch), applications_(store) {}

NotificationMessenger::~NotificationMessenger() { NotificationMessenger::Detach(); }

void NotificationMessenger::Attach(MessengerListener& listener) {
  listener_ = &listener;
  failure_.clear();
  try {
    Watch();
  } catch (const std::runtime_error& failure) {
    failure_ = Repaired(failure.what());
  }
  told_ = MyStatus();
  if (Changed) Changed();
}

void NotificationMessenger::Detach() {
  listener_ = nullptr;
  watch_.Stop();
  monitor_.reset();
  tester_.reset();
  applications_.Save();
}

void NotificationMessenger::Watch() {
  monitor_ = Monitor(bus_address_);
  watch_.Start(monitor_->Descriptor(), [this] { Ready(); });
}

std::int32_t NotificationMessenger::MyStatus() {
  return monitor_ && !applications_.On().empty() ? MSTATE_ONLINE : MSTATE_OFFLINE;
}

void NotificationMessenger::InstantMessage(const std::string& /*contact*/) {
  throw Failure(kInvalidCall, "A notification has no conversation that could be opened", kTitle);
}

Connection NotificationMessenger::Describe() const {
  if (!failure_.empty()) return {kName, ConnectionState::Failed, failure_};
  if (applications_.On().empty()) return {kName, ConnectionState::Off, {}};
  return {kName, monitor_ ? ConnectionState::Attached : ConnectionState::Waiting, {}};
}

void NotificationMessenger::SwitchApplication(const std::string& name, bool on) {
  applications_.Switch(name, on);
  StateMayHaveChanged();
}

void NotificationMessenger::StateMayHaveChanged() {
  if (Changed) Changed();
  const std::int32_t state = MyStatus();
  if (std::exchange(told_, state) == state || listener_ == nullptr) return;
  listener_->OnLocalStateChangeResult(state);
}

// A desktop may forget what it shows for a connection that has gone, so this one stays.
void NotificationMessenger::Test(const std::string& sentence) {
  if (!monitor_) return;
  try {
    if (!tester_ || !tester_->IsOpen()) tester_ = std::make_unique<BusConnection>(bus_address_);
    tester_->Send(*ShowNotification(kTitle, sentence));
  } catch (const std::runtime_error&) {
    // The bus is going, which the other connection is about to tell.
  }
}

// A handler may detach, or let this be called again. Of a flood only some are taken at a time, so
// that the window has its turn; the others wait at the bus.
void NotificationMessenger::Ready() {
  const std::shared_ptr<BusConnection> monitor = monitor_;
  if (!monitor) return;
  for (int taken = 0; taken < kAtATime; ++taken) {
    BusMessage message = monitor->Next();
    if (!message) {
      monitor->Read();
      message = monitor->Next();
    }
    if (!message) {
      if (!monitor->IsOpen() && monitor == monitor_) Fail("the session bus has gone");
      return;
    }
    const auto notification = ReadNotification(*message);
    if (notification && listener_ != nullptr) Hear(*notification);
  }
  if (monitor == monitor_) watch_.Again();
}

void NotificationMessenger::Fail(const std::string& why) {
  watch_.Later(kPause, [this] { TryAgain(); });
  monitor_.reset();
  failure_ = why;
  StateMayHaveChanged();
}

void NotificationMessenger::TryAgain() {
  try {
    Watch();
  } catch (const std::runtime_error&) {
    // It is still gone.
    return watch_.Later(kPause, [this] { TryAgain(); });
  }
  failure_.clear();
  StateMayHaveChanged();
}

void NotificationMessenger::Hear(const Notification& notification) {
  if (tester_ && notification.sender == tester_->Name()) {
    listener_->OnTextReceived({"", kName}, "", WithoutMarkup(notification.body));
    return;
  }
  const std::string application = ApplicationOf(notification);
  if (application.empty() || notification.is_gauge) return;
  if (applications_.See(application) && Changed) Changed();
  if (!applications_.IsOn(application)) return;
  if (HeardElsewhere && HeardElsewhere(LowerCase(application))) return;
  if (TellsOfMail(notification)) {
    RaiseMail(notification, application);
  } else {
    Raise(notification, application);
  }
}

void NotificationMessenger::Raise(const Notification& notification,
                                  const std::string& application) {
  std::string name = Name(notification.summary, kLongestName);
  std::string text = WithoutMarkup(notification.body);
  // A heading without a body is all that the application has to say.
  if (text.empty()) text = std::exchange(name, application);
  if (name.empty()) name = application;
  const MessengerContact contact = OrdinaryContact(application + ':' + name, name);
  const std::string part = said_.NewPart(contact.SigninName, text, notification.replaces);
  if (!part.empty()) listener_->OnTextReceived(contact, "", part);
}

void NotificationMessenger::RaiseMail(const Notification& notification,
                                      const std::string& application) {
  const std::string body = WithoutMarkup(notification.body);
  std::string from = MailSender(notification, body);
  if (from.empty()) from = application;
  const std::string contact = application + ':' + from;
  if (said_.NewPart(contact, body + '\n', notification.replaces).empty()) return;
  listener_->OnTextReceived({contact, kMailService}, "", NewMailNotice(from));
}

}  // namespace brenwick

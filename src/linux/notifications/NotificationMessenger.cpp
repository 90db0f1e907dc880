#include "linux/notifications/NotificationMessenger.h"

#include <stdexcept>
#include <utility>

#include "base/Failure.h"
#include "base/ProgramState.h"
#include "base/Text.h"
#include "linux/notifications/NotificationCalls.h"
#include "linux/notifications/NotificationReader.h"

namespace brenwick {
namespace {

constexpr int kAtATime = 10;  // messages of the bus
// The time for which the start of the program waits for the bus.
constexpr std::chrono::seconds kFirstMeeting{1};

std::unique_ptr<BusConnection> Monitor(const std::string& address) {
  auto monitor = std::make_unique<BusConnection>(address);
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
    : bus_address_(std::move(busAddress)), watch_(watch), applications_(store) {
  rules_.ApplicationAdded = [this] {
    if (Changed) Changed();
  };
  rules_.HeardElsewhere = [this](const std::string& application) {
    return HeardElsewhere && HeardElsewhere(application);
  };
}

NotificationMessenger::~NotificationMessenger() { NotificationMessenger::Detach(); }

void NotificationMessenger::Attach(MessengerListener& listener) {
  listener_ = &listener;
  failure_.clear();
  Connect();
  if (connecting_->Await(kFirstMeeting)) {
    TakeResult();
  } else {
    watch_.Start(connecting_->Descriptor(), [this] { Met(); });
  }
  told_ = MyStatus();
  if (Changed) Changed();
}

void NotificationMessenger::Detach() {
  listener_ = nullptr;
  watch_.Stop();
  connecting_.reset();
  monitor_.reset();
  tester_.reset();
  rules_.SetOwn({}, {});
  applications_.Save();
}

void NotificationMessenger::Connect() {
  connecting_ =
      std::make_unique<BusConnecting>([address = bus_address_] { return Monitor(address); });
}

void NotificationMessenger::TakeResult() {
  try {
    monitor_ = connecting_->Take();
    failure_.clear();
    watch_.Start(monitor_->Descriptor(), [this] { Ready(); });
  } catch (const std::runtime_error& failure) {
    if (failure_.empty()) failure_ = Repaired(failure.what());
    watch_.Later(kPause, [this] { TryAgain(); });
  }
  connecting_.reset();
}

// The watch calls this once before there is a result, too.
void NotificationMessenger::Met() {
  if (!connecting_->Await({})) return;
  TakeResult();
  StateMayHaveChanged();
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

// The connection stays: a desktop may take away the notifications of one that has gone.
void NotificationMessenger::Test(const std::string& sentence) {
  if (!monitor_) return;
  try {
    if (!tester_ || !tester_->IsOpen()) {
      tester_ = ConnectInTime(bus_address_);
      rules_.SetOwn(tester_->Name(), kName);
    }
    tester_->Send(*ShowNotification(kTitle, sentence));
  } catch (const std::runtime_error&) {
    // The bus is going, which the other connection is about to tell.
  }
}

// A handler may detach, or let this be called again. Of a flood only some messages are taken at a
// time, so that the window has its turn; the others wait at the bus.
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
  Connect();
  watch_.Start(connecting_->Descriptor(), [this] { Met(); });
}

void NotificationMessenger::Hear(const Notification& notification) {
  const auto message = rules_.Read(notification);
  if (message) listener_->OnTextReceived(message->contact, "", message->text);
}

}  // namespace brenwick

#include "desktop/purple/PurpleMessenger.h"

#include <future>
#include <iterator>
#include <memory>
#include <utility>

#include "base/Failure.h"
#include "base/ProgramState.h"

namespace brenwick {
namespace {

constexpr std::chrono::seconds kFirstMeeting{1};
constexpr int kAtATime = 10;

struct Own {
  std::int32_t state;
  std::string name;
};

}  // namespace

PurpleMessenger::PurpleMessenger(EndOfProgram& end, QDBusConnection bus,
                                 const PurpleOptions& options)
    : end_(end), bus_(std::move(bus)), options_(options) {
  connection_ = {"Pidgin or Finch", ConnectionState::Waiting, ""};
  soon_.setSingleShot(true);
  QObject::connect(&soon_, &QTimer::timeout, &here_, [this] { Tell(); });
}

PurpleMessenger::~PurpleMessenger() { PurpleMessenger::Detach(); }

void PurpleMessenger::Attach(MessengerListener& listener) {
  listener_ = &listener;
  if (!bus_.isConnected()) {
    connection_.State = ConnectionState::Failed;
    connection_.Detail = "There is no session bus";
    return;
  }
  client_ = new PurpleClient(bus_, options_, [this](News news) {
    QMetaObject::invokeMethod(
        &here_, [this, news = std::move(news)] { Keep(news); }, Qt::QueuedConnection);
  });
  client_->SetGroupChats(group_chats_);
  client_->moveToThread(&thread_);
  QObject::connect(&thread_, &QThread::finished, client_, &QObject::deleteLater);
  thread_.start();
  MeetTheClient();
}

void PurpleMessenger::MeetTheClient() {
  auto met = std::make_shared<std::promise<Own>>();
  auto own = met->get_future();
  QMetaObject::invokeMethod(client_, [client = client_, met] {
    client->Follow([&met](std::int32_t state, const std::string& name) {
      met->set_value({state, name});
    });
  });
  if (own.wait_for(kFirstMeeting) != std::future_status::ready) return;
  const Own now = own.get();
  own_state_ = now.state;
  own_name_ = now.name;
}

void PurpleMessenger::Detach() {
  listener_ = nullptr;
  news_.clear();
  if (client_ == nullptr) return;
  client_->GiveUp();
  thread_.quit();
  thread_.wait();
  client_ = nullptr;
}

void PurpleMessenger::InstantMessage(const std::string& contact) {
  if (client_ == nullptr || !there_) {
    throw Failure(kInvalidCall, "Neither Pidgin nor Finch is running", kTitle);
  }
  const auto found = accounts_.find(contact);
  const int account = found == accounts_.end() ? 0 : *found->second.begin();
  QMetaObject::invokeMethod(
      client_, [client = client_, account, contact] { client->Open(account, contact); });
}

void PurpleMessenger::Test(const std::string& sentence) {
  if (client_ == nullptr) return;
  QMetaObject::invokeMethod(client_, [client = client_, sentence] { client->Test(sentence); });
}

// Only one of the two clients has the name on the bus, and it may not be known yet which one.
bool PurpleMessenger::IsHeard(const std::string& application) const {
  return there_ && (application == "pidgin" || application == "finch");
}

void PurpleMessenger::SetGroupChats(bool on) {
  group_chats_ = on;
  if (client_ != nullptr) client_->SetGroupChats(on);
}

void PurpleMessenger::Keep(News news) {
  if (listener_ == nullptr) return;
  news_.push_back(std::move(news));
  if (!soon_.isActive()) soon_.start();
}

// Of a flood only some events are raised at a time, so that the window has its turn. A handler may
// let Qt run, or detach; the events behind it do not wait for its end.
void PurpleMessenger::Tell() {
  for (int told = 0; told < kAtATime && !news_.empty(); ++told) {
    const News news = std::move(news_.front());
    news_.pop_front();
    if (!news_.empty()) soon_.start();
    end_.Guard([&] { news(*this); });
  }
}

void PurpleMessenger::ConnectionIs(const Connection& connection, bool there) {
  there_ = there;
  connection_ = connection;
  if (Changed) Changed();
}

void PurpleMessenger::OwnStateIs(std::int32_t state, const std::string& name) {
  own_name_ = name;
  if (state == own_state_) return;
  own_state_ = state;
  listener_->OnLocalStateChangeResult(state);
}

void PurpleMessenger::CanReach(const std::string& contact, int account) {
  accounts_[contact].insert(account);
}

void PurpleMessenger::SignedOff(int account) {
  for (auto each = accounts_.begin(); each != accounts_.end();) {
    each->second.erase(account);
    each = each->second.empty() ? accounts_.erase(each) : std::next(each);
  }
}

void PurpleMessenger::Raise(const std::function<void(MessengerListener&)>& event) {
  event(*listener_);
}

}  // namespace brenwick

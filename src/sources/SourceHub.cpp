#include "sources/SourceHub.h"

#include <algorithm>
#include <utility>

#include "platform/MessengerStates.h"

namespace brenwick {
namespace {

using L = MessengerListener;

// Clears a flag at the end of a block, also where a handler ends the program.
struct Lowered {
  bool& flag;
  ~Lowered() { flag = false; }
};

}  // namespace

// Takes the events of one source. They are copied, since they may have to wait.
class SourceHub::Relay : public MessengerListener {
 public:
  Relay(SourceHub& all, MessengerSource& source) : all_(all), source_(source) {}

  void OnTextReceived(const MessengerContact& sender, const std::string& header,
                      const std::string& text) override {
    HeardOf(sender);
    all_.Raise([=](L& listener) { listener.OnTextReceived(sender, header, text); });
  }
  void OnUserStateChanged(const MessengerContact& user, std::int32_t state) override {
    HeardOf(user);
    all_.Raise([=](L& listener) { listener.OnUserStateChanged(user, state); });
  }
  void OnUserStateFound(const MessengerContact& user, std::int32_t state) override {
    HeardOf(user);
    all_.Raise([=](L& listener) { listener.OnUserStateFound(user, state); });
  }
  void OnLocalStateChangeResult(std::int32_t /*state*/) override { all_.OwnStateChanged(); }
  void OnAppInviteReceived(const MessengerContact& contact, const std::string& appName) override {
    HeardOf(contact);
    all_.Raise([=](L& listener) { listener.OnAppInviteReceived(contact, appName); });
  }
  void OnFileTransferInviteReceived(const MessengerContact& contact,
                                    const std::string& fileName) override {
    HeardOf(contact);
    all_.Raise([=](L& listener) { listener.OnFileTransferInviteReceived(contact, fileName); });
  }
  void OnNewerClientAvailable(const std::string& downloadAddress) override {
    all_.Raise([=](L& listener) { listener.OnNewerClientAvailable(downloadAddress); });
  }
  void OnOtherEvent(const std::string& name) override {
    all_.Raise([=](L& listener) { listener.OnOtherEvent(name); });
  }

 private:
  // Only contacts with whom the source can open conversations are remembered: other senders may be
  // any number.
  void HeardOf(const MessengerContact& contact) {
    if (source_.Knows(contact.SigninName)) all_.heard_at_[contact.SigninName] = &source_;
  }

  SourceHub& all_;
  MessengerSource& source_;
};

SourceHub::SourceHub(std::vector<MessengerSource*> sources) : sources_(std::move(sources)) {
  for (MessengerSource* source : sources_) {
    relays_.push_back(std::make_unique<Relay>(*this, *source));
  }
}

SourceHub::~SourceHub() { SourceHub::Detach(); }

void SourceHub::Attach(MessengerListener& listener) {
  listener_ = &listener;
  for (std::size_t i = 0; i < sources_.size(); ++i) sources_[i]->Attach(*relays_[i]);
  told_ = MyStatus();
}

void SourceHub::Detach() {
  listener_ = nullptr;
  waiting_.clear();
  for (MessengerSource* source : sources_) source->Detach();
}

std::int32_t SourceHub::MyStatus() {
  std::int32_t first = MSTATE_OFFLINE;
  for (auto source = sources_.rbegin(); source != sources_.rend(); ++source) {
    const std::int32_t state = (*source)->MyStatus();
    if (FactsOf(state).signed_in || !FactsOf(first).signed_in) first = state;
  }
  return first;
}

std::string SourceHub::MyName() {
  for (MessengerSource* source : sources_) {
    if (std::string name = source->MyName(); !name.empty()) return name;
  }
  return {};
}

void SourceHub::InstantMessage(const std::string& contact) {
  const auto heard = heard_at_.find(contact);
  if (heard != heard_at_.end() && heard->second->Knows(contact)) {
    return heard->second->InstantMessage(contact);
  }
  const auto knows = std::find_if(sources_.begin(), sources_.end(),
                                  [&](MessengerSource* source) { return source->Knows(contact); });
  if (knows != sources_.end()) {
    (*knows)->InstantMessage(contact);
  } else if (NobodyKnows) {
    NobodyKnows(contact);
  }
}

// The user's state follows from the states at all sources.
void SourceHub::OwnStateChanged() {
  const std::int32_t state = MyStatus();
  if (std::exchange(told_, state) == state) return;
  Raise([state](L& listener) { listener.OnLocalStateChangeResult(state); });
}

void SourceHub::Raise(Event event) {
  if (listener_ == nullptr) return;
  waiting_.push_back(std::move(event));
  if (std::exchange(handling_, true)) return;
  const Lowered done{handling_};
  HandleWaiting();
}

void SourceHub::HandleWaiting() {
  while (!waiting_.empty() && listener_ != nullptr) {
    const Event next = std::move(waiting_.front());
    waiting_.pop_front();
    next(*listener_);
  }
}

}  // namespace brenwick

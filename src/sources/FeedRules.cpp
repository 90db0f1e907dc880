#include "sources/FeedRules.h"

#include <algorithm>
#include <iterator>
#include <string_view>

#include "base/Text.h"
#include "sources/ForeignText.h"
#include "sources/MailService.h"

namespace brenwick {
namespace {

constexpr std::chrono::seconds kSecond(1);

struct NamedState {
  std::string_view name;
  MessengerState state;
};
constexpr NamedState kStates[] = {
    {"online", MSTATE_ONLINE},
    {"offline", MSTATE_OFFLINE},
    {"busy", MSTATE_BUSY},
    {"away", MSTATE_AWAY},
    {"idle", MSTATE_IDLE},
    {"be-right-back", MSTATE_BE_RIGHT_BACK},
    {"on-the-phone", MSTATE_ON_THE_PHONE},
    {"out-to-lunch", MSTATE_OUT_TO_LUNCH},
    {"invisible", MSTATE_INVISIBLE},
};

std::string StateNames() {
  std::string names;
  for (const NamedState& each : kStates) {
    if (!names.empty()) names += ", ";
    names += each.name;
  }
  return names;
}

// What makes the name unfit for a list of contacts; empty where nothing does.
std::string FaultOf(const std::string& name) {
  if (name.size() > FeedRules::kLongestName) {
    return "is longer than " + std::to_string(FeedRules::kLongestName) + " bytes";
  }
  if (HasControls(name)) return "holds a line end or another control character";
  return {};
}

MessengerContact ShownContact(const MessengerContact& contact) {
  const bool named = !OneLine(contact.FriendlyName).empty();
  return OrdinaryContact(contact.SigninName, named ? contact.FriendlyName : contact.SigninName);
}

std::optional<FeedError> CheckContact(const MessengerContact& contact) {
  constexpr const char* kContact = "InvalidContact";
  const std::string& id = contact.SigninName;
  if (OneLine(id).empty()) return FeedError{kContact, "the contact is empty"};
  if (const std::string fault = FaultOf(id); !fault.empty()) {
    return FeedError{kContact, "the contact " + fault};
  }
  if (const std::string fault = FaultOf(contact.FriendlyName); !fault.empty()) {
    return FeedError{"InvalidName", "the display name " + fault};
  }
  if (IsMailServiceName(ShownContact(contact).FriendlyName)) {
    return FeedError{kContact, "the contact is called like the service that tells of new mail"};
  }
  return std::nullopt;
}

std::optional<FeedError> CheckText(const std::string& text) {
  constexpr const char* kText = "InvalidText";
  if (text.empty()) return FeedError{kText, "the text is empty"};
  if (text.size() <= FeedRules::kLongestText) return std::nullopt;
  return FeedError{kText,
                   "the text is longer than " + std::to_string(FeedRules::kLongestText) + " bytes"};
}

}  // namespace

FeedRules::Result FeedRules::Message(const MessengerContact& contact, const std::string& text) {
  if (auto error = CheckContact(contact)) return *error;
  if (auto error = CheckText(text)) return *error;
  return FeedEvent{ShownContact(contact), text, std::nullopt};
}

FeedRules::Result FeedRules::State(const MessengerContact& contact, const std::string& state) {
  if (auto error = CheckContact(contact)) return *error;
  const auto* found = std::find_if(std::begin(kStates), std::end(kStates),
                                   [&state](const NamedState& each) { return each.name == state; });
  if (found == std::end(kStates)) {
    return FeedError{"UnknownState", "the state is none of these: " + StateNames()};
  }
  return FeedEvent{ShownContact(contact), {}, found->state};
}

std::optional<FeedError> FeedRules::Admit(const std::string& sender, const FeedEvent& event) {
  const std::string& contact = event.contact.SigninName;
  if (!Knows(contact) && contacts_.size() >= kMostContacts) {
    return FeedError{"TooManyContacts", "only " + std::to_string(kMostContacts) +
                                            " contacts are taken until the program starts again"};
  }
  auto refused = AdmitTest(sender);
  if (!refused) contacts_.insert(contact);
  return refused;
}

std::optional<FeedError> FeedRules::AdmitTest(const std::string& sender) {
  const Time now = now_();
  ForgetSenders(now);
  auto known = std::find_if(senders_.begin(), senders_.end(),
                            [&sender](const Sender& each) { return each.name == sender; });
  if (known == senders_.end()) {
    if (senders_.size() >= kMostSenders) {
      return FeedError{"TooManySenders", "only " + std::to_string(kMostSenders) +
                                             " senders are heard at the same time"};
    }
    known = senders_.insert(senders_.end(), {sender, {}});
  }
  std::deque<Time>& events = known->events;
  while (!events.empty() && now - events.front() >= kSecond) events.pop_front();
  if (events.size() >= kMostEvents) {
    return FeedError{"TooManyEvents", "only " + std::to_string(kMostEvents) +
                                          " events a second are taken from one sender"};
  }
  events.push_back(now);
  senders_.splice(senders_.end(), senders_, known);
  return std::nullopt;
}

void FeedRules::ForgetSenders(Time now) {
  while (!senders_.empty() && now - senders_.front().events.back() >= kSecond) {
    senders_.pop_front();
  }
}

}  // namespace brenwick

#include "sources/FeedEvents.h"

#include <algorithm>
#include <iterator>
#include <string_view>

#include "base/Text.h"
#include "sources/ForeignText.h"
#include "sources/MailService.h"

namespace brenwick {
namespace {

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

// Nothing where the name is fit to be kept in a list of contacts.
std::string Wrong(const std::string& name) {
  if (name.size() > kLongestFeedName) {
    return "is longer than " + std::to_string(kLongestFeedName) + " bytes";
  }
  if (HasControls(name)) return "holds a line end or another control character";
  return {};
}

}  // namespace

std::optional<FeedError> CheckContact(const MessengerContact& contact) {
  constexpr const char* kContact = "InvalidContact";
  const std::string& id = contact.SigninName;
  if (OneLine(id).empty()) return FeedError{kContact, "the contact is empty"};
  if (const std::string wrong = Wrong(id); !wrong.empty()) {
    return FeedError{kContact, "the contact " + wrong};
  }
  if (const std::string wrong = Wrong(contact.FriendlyName); !wrong.empty()) {
    return FeedError{"InvalidName", "the display name " + wrong};
  }
  if (IsMailServiceName(FeedContact(contact).FriendlyName)) {
    return FeedError{kContact, "the contact is called like the service that tells of new mail"};
  }
  return std::nullopt;
}

std::optional<FeedError> CheckText(const std::string& text) {
  constexpr const char* kText = "InvalidText";
  if (text.empty()) return FeedError{kText, "the text is empty"};
  if (text.size() > kLongestFeedText) {
    return FeedError{kText,
                     "the text is longer than " + std::to_string(kLongestFeedText) + " bytes"};
  }
  return std::nullopt;
}

MessengerContact FeedContact(const MessengerContact& contact) {
  const bool named = !OneLine(contact.FriendlyName).empty();
  return OrdinaryContact(contact.SigninName, named ? contact.FriendlyName : contact.SigninName);
}

std::optional<std::int32_t> FeedState(const std::string& name) {
  const auto* found = std::find_if(std::begin(kStates), std::end(kStates),
                                   [&name](const NamedState& each) { return each.name == name; });
  return found == std::end(kStates) ? std::nullopt : std::optional<std::int32_t>(found->state);
}

std::string FeedStateNames() {
  std::string names;
  for (const NamedState& each : kStates) {
    if (!names.empty()) names += ", ";
    names += each.name;
  }
  return names;
}

}  // namespace brenwick

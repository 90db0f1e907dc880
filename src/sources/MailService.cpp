#include "sources/MailService.h"

#include <algorithm>
#include <cstdint>
#include <limits>
#include <utility>

#include "base/Text.h"
#include "sources/ForeignText.h"

namespace brenwick {
namespace {

constexpr const char* kInbox = "INBOX-UNREAD:";

}  // namespace

bool IsMailServiceName(const std::string& name) {
  return UpperCase(name) == UpperCase(std::string_view(kMailService));
}

MessengerContact OrdinaryContact(std::string signinName, std::string friendlyName) {
  if (IsMailServiceName(friendlyName)) friendlyName = signinName;
  return {std::move(signinName), std::move(friendlyName)};
}

MessengerContact QuotedContact(std::string signinName, std::string friendlyName) {
  MessengerContact contact = OrdinaryContact(std::move(signinName), std::move(friendlyName));
  if (IsMailServiceName(contact.FriendlyName)) {
    contact.FriendlyName = '"' + contact.FriendlyName + '"';
  }
  return contact;
}

// A notice that holds the word of an inbox's notice anywhere is read as an inbox's notice.
std::string NewMailNotice(const std::string& from) {
  std::string name = OneLine(from);
  if (UpperCase(name).find(kInbox) != std::string::npos) {
    std::replace(name.begin(), name.end(), ':', ' ');
  }
  return "FROM:" + name + "\r";
}

std::string InboxNotice(unsigned count) {
  constexpr unsigned kMost = std::numeric_limits<std::int16_t>::max();
  return kInbox + std::to_string(std::min(count, kMost)) + "\r";
}

}  // namespace brenwick

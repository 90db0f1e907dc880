#include "desktop/MailService.h"

#include <algorithm>
#include <utility>

#include "base/Text.h"
#include "desktop/ForeignText.h"

namespace brenwick {

bool IsMailServiceName(const std::string& name) {
  return UpperCase(name) == UpperCase(std::string_view(kMailService));
}

MessengerContact OrdinaryContact(std::string signinName, std::string friendlyName) {
  if (IsMailServiceName(friendlyName)) friendlyName = signinName;
  return {std::move(signinName), std::move(friendlyName)};
}

// A notice that holds the word of an inbox's notice, wherever, is read as one of those.
std::string NewMailNotice(const std::string& from) {
  std::string name = OneLine(from);
  if (UpperCase(name).find("INBOX-UNREAD:") != std::string::npos) {
    std::replace(name.begin(), name.end(), ':', ' ');
  }
  return "FROM:" + name + "\r";
}

}  // namespace brenwick

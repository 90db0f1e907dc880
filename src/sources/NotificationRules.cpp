#include "sources/NotificationRules.h"

#include <string_view>
#include <utility>

#include "base/Text.h"
#include "sources/ForeignText.h"
#include "sources/MailApplications.h"
#include "sources/MailService.h"

namespace brenwick {
namespace {

constexpr std::size_t kLongestApplication = 128;  // bytes
constexpr std::size_t kLongestName = 1024;

std::string Name(const std::string& text, std::size_t longest) {
  return std::string(Trimmed(FirstBytes(OneLine(text), longest)));
}

// The name that people know. An application that gives no name goes by its desktop entry; one
// without either cannot be switched on.
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

}  // namespace

void NotificationRules::SetOwn(std::string sender, std::string own_name) {
  own_sender_ = std::move(sender);
  own_name_ = std::move(own_name);
}

std::optional<NotifiedMessage> NotificationRules::Read(const Notification& notification) {
  if (!own_sender_.empty() && notification.sender == own_sender_) {
    return NotifiedMessage{{"", own_name_}, WithoutMarkup(notification.body)};
  }
  const std::string application = ApplicationOf(notification);
  if (application.empty() || notification.is_gauge) return std::nullopt;
  if (applications_.See(application) && ApplicationAdded) ApplicationAdded();
  if (!applications_.IsOn(application)) return std::nullopt;
  if (HeardElsewhere && HeardElsewhere(LowerCase(application))) return std::nullopt;
  return TellsOfMail(notification) ? ReadMail(notification, application)
                                   : ReadMessage(notification, application);
}

std::optional<NotifiedMessage> NotificationRules::ReadMessage(const Notification& notification,
                                                              const std::string& application) {
  std::string name = Name(notification.summary, kLongestName);
  std::string text = WithoutMarkup(notification.body);
  // A heading without a body is all that the application has to say.
  if (text.empty()) text = std::exchange(name, application);
  if (name.empty()) name = application;
  const MessengerContact contact = OrdinaryContact(application + ':' + name, name);
  std::string part = said_.NewPart(contact.SigninName, text, notification.replaces);
  if (part.empty()) return std::nullopt;
  return NotifiedMessage{contact, std::move(part)};
}

std::optional<NotifiedMessage> NotificationRules::ReadMail(const Notification& notification,
                                                           const std::string& application) {
  const std::string body = WithoutMarkup(notification.body);
  std::string from = MailSender(notification, body);
  if (from.empty()) from = application;
  const std::string contact = application + ':' + from;
  if (said_.NewPart(contact, body + '\n', notification.replaces).empty()) return std::nullopt;
  return NotifiedMessage{{contact, kMailService}, NewMailNotice(from)};
}

}  // namespace brenwick

#include "desktop/qt/PurpleText.h"

#include <QRegularExpression>
#include <QTextDocumentFragment>
#include <algorithm>
#include <limits>

#include "base/Text.h"

namespace brenwick {
namespace {

constexpr const char* kMailService = "HOTMAIL";
// By this a notice tells a number of mails; in a sender's name it would be taken for that.
constexpr const char* kInbox = "INBOX-UNREAD:";

bool IsMailService(const std::string& name) { return UpperCase(name) == kMailService; }

// "Anna Baker" of "Anna Baker <anna@example.org>".
QString NameOfSender(const QString& from) {
  static const QRegularExpression kAddress(QStringLiteral("\\s*<[^<>]*>\\s*$"));
  const QString name = QString(from).remove(kAddress).simplified();
  return name.isEmpty() ? from.simplified() : name;
}

}  // namespace

std::string TextOf(const QString& text) { return Repaired(text.toStdString()); }

std::string PlainMessage(const QString& html) {
  return TextOf(QTextDocumentFragment::fromHtml(html).toPlainText());
}

MessengerContact MailService() { return {"", kMailService}; }

MessengerContact HonestContact(const QString& id, const QString& name) {
  MessengerContact contact{TextOf(id), TextOf(name)};
  if (contact.FriendlyName.empty() || IsMailService(contact.FriendlyName)) {
    contact.FriendlyName = contact.SigninName;
  }
  if (IsMailService(contact.FriendlyName)) {
    contact.FriendlyName = "\"" + contact.FriendlyName + "\"";
  }
  return contact;
}

std::string MailNotice(const QString& from) {
  QString name = NameOfSender(from);
  if (name.isEmpty()) return InboxNotice(1);
  if (UpperCase(TextOf(name)).find(kInbox) != std::string::npos) name.remove(':');
  return "FROM:" + TextOf(name) + "\r";
}

std::string InboxNotice(unsigned count) {
  constexpr unsigned kMost = std::numeric_limits<std::int16_t>::max();
  return kInbox + std::to_string(std::min(count, kMost)) + "\r";
}

}  // namespace brenwick

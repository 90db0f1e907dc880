#include "desktop/qt/PurpleText.h"

#include <QRegularExpression>
#include <QTextDocumentFragment>
#include <algorithm>
#include <iterator>
#include <limits>

#include "base/Text.h"

namespace brenwick {
namespace {

constexpr const char* kMailService = "HOTMAIL";
// By this a notice tells a number of mails; in a sender's name it would be taken for that.
constexpr const char* kInbox = "INBOX-UNREAD:";

bool IsMailService(const std::string& name) { return UpperCase(name) == kMailService; }

bool Stands(const char* const* begin, const char* const* end, const QString& name) {
  return std::find(begin, end, name) != end;
}

// What stands on lines of its own, and what is not there to be read.
constexpr const char* kBlocks[] = {"blockquote", "body", "dd", "div", "dl",    "dt", "h1",
                                   "h2",         "h3",   "h4", "h5",  "h6",    "hr", "html",
                                   "li",         "ol",   "p",  "pre", "table", "tr", "ul"};
constexpr const char* kHidden[] = {"head", "script", "style", "title"};

// The text with its entities, and of all tags the line breaks alone. Qt's own reader opens the
// files that a tag names, and takes seconds over thousands of nested ones: it is shown none.
class TagRemover {
 public:
  explicit TagRemover(const QString& html) : html_(html) {}

  QString Text() {
    qsizetype place = 0;
    while (place < html_.size()) {
      const qsizetype tag = html_.indexOf('<', place);
      Add(html_.mid(place, tag < 0 ? -1 : tag - place));
      if (tag < 0) break;
      place = AfterTag(tag);
    }
    return text_;
  }

 private:
  void Add(const QString& text) {
    if (new_line_) {
      if (text.trimmed().isEmpty()) return;
      if (!text_.trimmed().isEmpty()) text_ += "<br>";
      new_line_ = false;
    }
    text_ += text;
  }

  qsizetype AfterTag(qsizetype tag) {
    if (html_.mid(tag, 4) == "<!--") return Behind("-->", tag);
    const qsizetype end = html_.indexOf('>', tag);
    if (end < 0) {
      Add(html_.mid(tag).replace('<', "&lt;"));
      return html_.size();
    }
    const bool closes = html_.mid(tag + 1, 1) == "/";
    const QString name = NameAt(tag + (closes ? 2 : 1));
    if (name == "br") text_ += "<br>";
    if (Stands(std::begin(kBlocks), std::end(kBlocks), name)) new_line_ = true;
    if (!closes && Stands(std::begin(kHidden), std::end(kHidden), name)) {
      return Behind(">", html_.indexOf("</" + name, end, Qt::CaseInsensitive));
    }
    return end + 1;
  }

  QString NameAt(qsizetype place) const {
    qsizetype end = place;
    while (end < html_.size() && html_[end].isLetterOrNumber()) ++end;
    return html_.mid(place, end - place).toLower();
  }

  // The end of the text where the mark does not come.
  qsizetype Behind(const QString& mark, qsizetype from) const {
    const qsizetype found = from < 0 ? -1 : html_.indexOf(mark, from);
    return found < 0 ? html_.size() : found + mark.size();
  }

  const QString& html_;
  QString text_;
  bool new_line_ = false;  // what follows stands on a new line
};

// "Anna Baker" of "Anna Baker <anna@example.org>".
QString NameOfSender(const QString& from) {
  static const QRegularExpression kAddress(QStringLiteral("\\s*<[^<>]*>\\s*$"));
  const QString name = QString(from).remove(kAddress).simplified();
  return name.isEmpty() ? from.simplified() : name;
}

}  // namespace

std::string TextOf(const QString& text) { return text.toStdString(); }

std::string PlainMessage(const QString& html) {
  return TextOf(QTextDocumentFragment::fromHtml(TagRemover(html).Text()).toPlainText());
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

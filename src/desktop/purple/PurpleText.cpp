#include "desktop/purple/PurpleText.h"

#include <QRegularExpression>
#include <QTextDocumentFragment>
#include <algorithm>
#include <iterator>

#include "sources/ForeignText.h"
#include "sources/MailService.h"

namespace brenwick {
namespace {

constexpr std::size_t kLongestName = 1024;          // in bytes
constexpr std::size_t kLongestText = 64 * 1024;     // in bytes
constexpr qsizetype kLongestHtml = 256 * 1024 / 2;  // in characters of Qt's, of two bytes

bool Stands(const char* const* begin, const char* const* end, const QString& name) {
  return std::find(begin, end, name) != end;
}

// Elements that stand on lines of their own, and elements that are not shown.
constexpr const char* kBlocks[] = {"blockquote", "body", "dd", "div", "dl",    "dt", "h1",
                                   "h2",         "h3",   "h4", "h5",  "h6",    "hr", "html",
                                   "li",         "ol",   "p",  "pre", "table", "tr", "ul"};
constexpr const char* kHidden[] = {"head", "script", "style", "title"};

// Removes all tags but line breaks, and keeps entities. Qt's own reader would open the files that a
// tag names, and take seconds over thousands of nested tags.
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
    const bool has_words = !text.trimmed().isEmpty();
    if (new_line_) {
      if (!has_words) return;
      if (begun_) text_ += "<br>";
      new_line_ = false;
    }
    begun_ = begun_ || has_words;
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
    if (name == "br") {
      text_ += "<br>";
      begun_ = true;
    }
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

  // The place behind the mark; the end of the text where there is no mark.
  qsizetype Behind(const QString& mark, qsizetype from) const {
    const qsizetype found = from < 0 ? -1 : html_.indexOf(mark, from);
    return found < 0 ? html_.size() : found + mark.size();
  }

  const QString& html_;
  QString text_;
  bool begun_ = false;     // it is not all white space
  bool new_line_ = false;  // what follows stands on a new line
};

// "Anna Baker" of "Anna Baker <anna@example.org>".
QString NameOfSender(const QString& from) {
  static const QRegularExpression kAddress(QStringLiteral("\\s*<[^<>]*>\\s*$"));
  const QString name = QString(from).remove(kAddress).simplified();
  return name.isEmpty() ? from.simplified() : name;
}

}  // namespace

std::string NameOf(const QString& name) {
  const std::string text = name.left(kLongestName).toStdString();
  return OneLine(FirstBytes(text, kLongestName));
}

std::string PlainMessage(const QString& html) {
  const QString words = TagRemover(html.left(kLongestHtml)).Text();
  const std::string text = QTextDocumentFragment::fromHtml(words).toPlainText().toStdString();
  return std::string(FirstBytes(text, kLongestText));
}

MessengerContact HonestContact(const QString& id, const QString& name) {
  const std::string signin = NameOf(id);
  const std::string friendly = NameOf(name);
  return QuotedContact(signin, friendly.empty() ? signin : friendly);
}

std::string MailNotice(const QString& from) {
  const std::string name = NameOf(NameOfSender(from.left(kLongestHtml)));
  return name.empty() ? InboxNotice(1) : NewMailNotice(name);
}

}  // namespace brenwick

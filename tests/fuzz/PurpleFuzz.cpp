// Messages, names and senders of mail as libpurple hands them over, any bytes.
#include <sys/stat.h>

#include <QGuiApplication>
#include <algorithm>

#include "base/Text.h"
#include "desktop/purple/PurpleText.h"
#include "fuzz/Fuzz.h"
#include "fuzz/TemporaryFolder.h"
#include "sources/ForeignText.h"
#include "sources/MailService.h"

namespace brenwick {
namespace {

// Whoever opens this pipe waits for ever: nobody writes to it.
class Pipe {
 public:
  Pipe() { Expect(::mkfifo(Path().c_str(), 0600) == 0, "a pipe can be made"); }

  std::string Path() const { return folder_.Path() + "/pipe"; }

 private:
  const TemporaryFolder folder_;
};

// Qt reads HTML by means of fonts, which an application without a screen has as well.
void StartQt() {
  static const bool offscreen = qputenv("QT_QPA_PLATFORM", "offscreen");
  static int count = 1;
  static char name[] = "fuzz";
  static char* arguments[] = {name, nullptr};
  static const QGuiApplication application(count, arguments);
  Expect(offscreen, "Qt needs no screen");
}

// What Qt may hand over. In an input that begins with an odd byte also halves of characters.
QString TextOf(std::string_view bytes) {
  if (bytes.empty() || (bytes.front() & 1) == 0) {
    return QString::fromUtf8(bytes.data(), static_cast<qsizetype>(bytes.size()));
  }
  std::u16string units;
  for (std::size_t i = 1; i + 1 < bytes.size(); i += 2) {
    const auto low = static_cast<unsigned char>(bytes[i]);
    const auto high = static_cast<unsigned char>(bytes[i + 1]);
    units += static_cast<char16_t>(low | high << 8U);
  }
  return QString::fromStdU16String(units);
}

// Characters that stand for themselves once they are escaped.
QString OrdinaryWords(const QString& text) {
  QString words;
  for (const QChar c : text) {
    const bool mark = QString("&<>\"'.;:#!?-/=").contains(c);
    words += mark || (c.isLetterOrNumber() && !c.isSurrogate()) ? c : QChar(' ');
  }
  return words.simplified();
}

QString Without(QString text, const QString& characters) {
  for (const QChar c : characters) text.remove(c);
  return text;
}

void CheckMessage(const QString& html) {
  constexpr std::size_t kLongestText = 64 * 1024;
  const std::string text = PlainMessage(html);
  Expect(IsValidUtf8(text), "a message is valid UTF-8");
  Expect(text.size() <= kLongestText, "a message ends somewhere");
}

void CheckMeaning(const QString& words, const QString& more, const QString& foreign) {
  const std::string text = words.toStdString();
  const QString html = words.toHtmlEscaped();
  Expect(PlainMessage(html) == text, "an escaped text is the text");
  Expect(PlainMessage("<FONT color='" + Without(foreign, ">") + "'>" + html + "</font>") == text,
         "a tag is not read");
  Expect(PlainMessage("<!--" + Without(foreign, ">") + "-->" + html) == text,
         "a remark is not read");
  Expect(PlainMessage("<style>" + Without(foreign, "<") + "</Style>" + html) == text,
         "a style is not read");
  if (words.isEmpty() || more.isEmpty()) return;
  const std::string lines = text + '\n' + more.toStdString();
  Expect(PlainMessage(html + "<br/>" + more.toHtmlEscaped()) == lines, "a line break is one");
  Expect(PlainMessage("<p>" + html + "</p>" + more.toHtmlEscaped()) == lines,
         "a paragraph ends its line");
}

void CheckName(const QString& id, const QString& name) {
  constexpr std::size_t kLongestName = 1024;
  const MessengerContact contact = HonestContact(id, name);
  for (const std::string& each : {NameOf(name), contact.SigninName, contact.FriendlyName}) {
    Expect(IsValidUtf8(each) && !HasControls(each), "a name is one line");
    Expect(each.size() <= kLongestName + 2, "a name ends somewhere");
    Expect(OneLine(each) == each, "a name has no white ends");
  }
  Expect(!IsMailServiceName(contact.FriendlyName), "nobody poses as the mail service");
}

void CheckMail(const QString& from) {
  const std::string notice = MailNotice(from);
  Expect(notice.find_first_of("\r\n") == notice.size() - 1, "a notice is one line");
  if (notice == "INBOX-UNREAD:1\r") return;
  Expect(notice.starts_with("FROM:") && notice.size() > 6, "a notice names the sender");
  Expect(UpperCase(notice).find("INBOX-UNREAD:") == notice.npos, "a sender is no inbox");
}

// U+0001 in an input stands for a file that must not be opened.
void Check(std::string_view bytes) {
  StartQt();
  static const Pipe pipe;
  QString text = TextOf(bytes);
  const QString html = QString(text).replace(QChar(1), QString::fromStdString(pipe.Path()));
  CheckMessage(html);
  const qsizetype half = text.size() / 2;
  CheckMeaning(OrdinaryWords(text.left(half)), OrdinaryWords(text.mid(half)), html);
  CheckName(text.left(half), text.mid(half));
  CheckMail(text);
}

const FuzzTarget kTarget("purple", Check);

}  // namespace
}  // namespace brenwick

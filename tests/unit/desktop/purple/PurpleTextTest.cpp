#include "desktop/purple/PurpleText.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <QGuiApplication>
#include <QTemporaryDir>

#include "base/Text.h"
#include "support/TestApplication.h"

namespace brenwick {
namespace {

class PurpleTextTest : public testing::Test {
 protected:
  TestApplication<QGuiApplication> application;
};

TEST_F(PurpleTextTest, ReadsWhatAPersonWouldRead) {
  EXPECT_EQ(PlainMessage("plain"), "plain");
  EXPECT_EQ(PlainMessage("a &lt; b &amp;&amp; c &gt; d &quot;e&quot; &#228;"),
            "a < b && c > d \"e\" \u00E4");
  EXPECT_EQ(PlainMessage("one<BR>two<br/>three"), "one\ntwo\nthree");
  EXPECT_EQ(PlainMessage("<p>rich <b>bold</b><br/>next</p><p>last</p>"), "rich bold\nnext\nlast");
  EXPECT_EQ(PlainMessage("<a href='http://example.org/'>a link</a>"), "a link");
  EXPECT_EQ(PlainMessage("\U0001F600 caf\u00E9"), "\U0001F600 caf\u00E9");
  EXPECT_EQ(PlainMessage("before<div>a <span>line</span></div>\n<ul><li>1</li><li>2</li></ul>end"),
            "before\na line\n1\n2\nend");
  EXPECT_EQ(PlainMessage(""), "");
  EXPECT_EQ(PlainMessage("<br>"), "\n");
  EXPECT_EQ(PlainMessage("I <!-- do not --> agree"), "I agree");
  EXPECT_EQ(PlainMessage("<script>evil()</script>said<STYLE>x</Style>"), "said");
}

TEST_F(PurpleTextTest, IsValidWhateverTheMessageNames) {
  for (const char* html : {"&#xD800;x", "&#xDC00;x", "&#x110000;x", "&#0;x", "&#-1;x"}) {
    const std::string text = PlainMessage(html);
    EXPECT_TRUE(IsValidUtf8(text)) << html;
    EXPECT_EQ(text.back(), 'x') << html;
  }
}

// A pipe that nobody writes to holds up whoever opens it.
TEST_F(PurpleTextTest, OpensNoFileThatAMessageNames) {
  const QTemporaryDir folder;
  const QString pipe = folder.filePath("pipe");
  ASSERT_EQ(mkfifo(pipe.toLocal8Bit().constData(), 0600), 0);
  for (const char* html :
       {"<link rel='stylesheet' href='%1'/>x", "<img src='%1'/>x", "<img src='file://%1'/>x",
        "<link rel='stylesheet' type='text/css' href='file://%1'/>x",
        "<style>@import url('file://%1');</style>x", "<body background='file://%1'>x</body>",
        "<table background='file://%1'><tr><td>x</td></tr></table>"}) {
    EXPECT_NE(PlainMessage(QString(html).arg(pipe)).find('x'), std::string::npos) << html;
  }
}

TEST_F(PurpleTextTest, GetsThroughWhatIsMeantToStopIt) {
  constexpr int kMany = 20000;
  EXPECT_EQ(PlainMessage(QString("<b>").repeated(kMany) + "x"), "x");
  EXPECT_EQ(PlainMessage(QString("<div>").repeated(kMany) + "x"), "x");
  EXPECT_EQ(PlainMessage(QString("<br>").repeated(kMany)), std::string(kMany, '\n'));
  EXPECT_EQ(PlainMessage(QString("&lt;").repeated(kMany)), std::string(kMany, '<'));
  EXPECT_EQ(PlainMessage(QString("<").repeated(kMany)), std::string(kMany, '<'));
  EXPECT_EQ(PlainMessage(QString("<style>").repeated(kMany)), "");
  std::string lines = "x";
  for (int i = 1; i < kMany; ++i) lines += "\nx";
  EXPECT_EQ(PlainMessage(QString(" ") + QString("<p>x").repeated(kMany)), lines);
}

TEST_F(PurpleTextTest, EndsWhereNobodyReadsOn) {
  constexpr int kText = 64 * 1024;
  constexpr int kHtml = 128 * 1024;
  EXPECT_EQ(PlainMessage(QString("x").repeated(kText)), std::string(kText, 'x'));
  EXPECT_EQ(PlainMessage(QString("x").repeated(kText + 1)), std::string(kText, 'x'));
  EXPECT_EQ(PlainMessage(QString("<b>").repeated(kHtml / 3) + "ends"), "en");
}

TEST(PurpleMail, IsToldByItsSendersName) {
  EXPECT_EQ(MailNotice("Anna Baker <anna@example.org>"), "FROM:Anna Baker\r");
  EXPECT_EQ(MailNotice("anna@example.org"), "FROM:anna@example.org\r");
  EXPECT_EQ(MailNotice("<anna@example.org>"), "FROM:<anna@example.org>\r");
  EXPECT_EQ(MailNotice(" Anna\r\nBaker "), "FROM:Anna Baker\r");
}

TEST(PurpleMail, WithoutASenderIsOneMoreInTheInbox) {
  EXPECT_EQ(MailNotice(""), "INBOX-UNREAD:1\r");
  EXPECT_EQ(MailNotice("\r"), "INBOX-UNREAD:1\r");
}

TEST(PurpleMail, IsNoNumberOfMailsWhateverItsSenderIsCalled) {
  EXPECT_EQ(MailNotice("Inbox-Unread: many"), "FROM:Inbox-Unread  many\r");
  EXPECT_EQ(MailNotice("\u0131nbox-unread:"), "FROM:\u0131nbox-unread \r");
}

TEST(PurpleMail, IsFromASenderWhoseNameEndsSomewhere) {
  EXPECT_EQ(MailNotice(QString("x").repeated(5000)), "FROM:" + std::string(1024, 'x') + "\r");
}

TEST(PurpleName, IsOneLine) {
  EXPECT_EQ(NameOf("Anna\r\nBaker\u2028\t"), "Anna  Baker");
  EXPECT_EQ(NameOf("\n"), "");
}

TEST(PurpleName, EndsSomewhere) {
  EXPECT_EQ(NameOf(QString("x").repeated(1024)), std::string(1024, 'x'));
  EXPECT_EQ(NameOf(QString("x").repeated(1025)), std::string(1024, 'x'));
  const std::string name = NameOf(QString("\u20AC").repeated(1025));
  EXPECT_EQ(name.size(), 1023U) << "no character is cut in two";
  EXPECT_TRUE(IsValidUtf8(name));
}

TEST(PurpleName, IsNotTheMailServicesHoweverItIsWritten) {
  EXPECT_EQ(HonestContact("anna@home", "Hotmail\n").FriendlyName, "anna@home");
  EXPECT_EQ(HonestContact("\rhotmail", "\tHOTMAIL ").FriendlyName, "\"hotmail\"");
  EXPECT_EQ(HonestContact("anna@home", "\n").FriendlyName, "anna@home");
}

}  // namespace
}  // namespace brenwick

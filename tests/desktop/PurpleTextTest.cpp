#include "desktop/qt/PurpleText.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <QGuiApplication>
#include <QTemporaryDir>

#include "base/Text.h"
#include "desktop/TestApplication.h"

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
  EXPECT_EQ(MailNotice("Inbox-Unread: many"), "FROM:Inbox-Unread many\r");
  EXPECT_EQ(MailNotice("\u0131nbox-unread:"), "FROM:\u0131nbox-unread\r");
}

TEST(PurpleMail, IsCountedAsFarAsTheProgramCounts) {
  EXPECT_EQ(InboxNotice(7), "INBOX-UNREAD:7\r");
  EXPECT_EQ(InboxNotice(4000000000U), "INBOX-UNREAD:32767\r");
}

}  // namespace
}  // namespace brenwick

#include "sources/MailService.h"

#include <gtest/gtest.h>

#include "base/Text.h"
#include "sources/MailApplications.h"

namespace brenwick {
namespace {

TEST(MailService, IsKnownByItsNameInAnyCase) {
  EXPECT_TRUE(IsMailServiceName("hotMAIL"));
  EXPECT_TRUE(IsMailServiceName(kMailService));
  EXPECT_FALSE(IsMailServiceName("Hotmail "));
  // Its capital is that of "i", so the program would read the service's name.
  EXPECT_TRUE(IsMailServiceName("hotma\xC4\xB1l"));
}

TEST(MailService, IsNobodyElse) {
  EXPECT_EQ(OrdinaryContact("Chat:Hotmail", "HOTMAIL").FriendlyName, "Chat:Hotmail");
  EXPECT_EQ(OrdinaryContact("Chat:Anna", "Anna").FriendlyName, "Anna");
  EXPECT_EQ(OrdinaryContact("Chat:Anna", "Anna").SigninName, "Chat:Anna");
}

TEST(MailService, IsNotEvenWhoIsSignedInAsThat) {
  EXPECT_EQ(QuotedContact("hotmail", "Hotmail").FriendlyName, "\"hotmail\"");
  EXPECT_EQ(QuotedContact("hotmail", "Hotmail").SigninName, "hotmail");
  EXPECT_EQ(QuotedContact("anna", "Hotmail").FriendlyName, "anna");
  EXPECT_EQ(QuotedContact("hotmail", "Anna").FriendlyName, "Anna");
}

TEST(InboxNotice, CountsAsFarAsTheProgramDoes) {
  EXPECT_EQ(InboxNotice(7), "INBOX-UNREAD:7\r");
  EXPECT_EQ(InboxNotice(4000000000U), "INBOX-UNREAD:32767\r");
}

TEST(NewMailNotice, IsOneLineWithItsEnd) {
  EXPECT_EQ(NewMailNotice("Anna Baker"), "FROM:Anna Baker\r");
  EXPECT_EQ(NewMailNotice("Anna\rBaker\nCole"), "FROM:Anna Baker Cole\r");
  EXPECT_EQ(NewMailNotice("a:b"), "FROM:a:b\r");
}

TEST(NewMailNotice, NeverBecomesThatOfAnInbox) {
  for (const char* name : {"INBOX-UNREAD:", "Anna inbox-Unread: 7", "\xC4\xB1nbox-unread:9"}) {
    const std::string notice = NewMailNotice(name);
    EXPECT_EQ(UpperCase(notice).find("INBOX-UNREAD:"), std::string::npos) << notice;
  }
}

Notification Of(const char* application, const char* entry, const char* category) {
  Notification notification;
  notification.application = application;
  notification.desktop_entry = entry;
  notification.category = category;
  return notification;
}

TEST(MailApplications, AreKnownByTheirDesktopEntryOrTheirName) {
  EXPECT_TRUE(TellsOfMail(Of("Mail", "org.gnome.Geary", "")));
  EXPECT_TRUE(TellsOfMail(Of("Claws Mail", "", "")));
  EXPECT_FALSE(TellsOfMail(Of("Thunderbird", "org.example.Chat", "")));
  EXPECT_FALSE(TellsOfMail(Of("Chat", "", "")));
}

TEST(MailApplications, AreOverruledByTheCategory) {
  EXPECT_TRUE(TellsOfMail(Of("Chat", "", "email.arrived")));
  EXPECT_FALSE(TellsOfMail(Of("Thunderbird", "thunderbird", "im.received")));
  EXPECT_FALSE(TellsOfMail(Of("Thunderbird", "thunderbird", "email.bounced")));
}

}  // namespace
}  // namespace brenwick

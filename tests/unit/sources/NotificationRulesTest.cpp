// Which notifications become messages, and which messages; no bus is needed for it.
#include "sources/NotificationRules.h"

#include <gtest/gtest.h>

#include "support/IniStoreFixture.h"

namespace brenwick {
namespace {

class NotificationRulesTest : public IniStoreFixture {
 protected:
  static Notification Shown(const std::string& application, const std::string& summary,
                            const std::string& body) {
    Notification shown;
    shown.sender = ":1.5";
    shown.application = application;
    shown.summary = summary;
    shown.body = body;
    return shown;
  }
  // "SIGN-IN NAME,NAME,TEXT", or "-" where nothing is read.
  std::string Read(const Notification& notification) {
    const auto message = rules_.Read(notification);
    if (!message) return "-";
    return message->contact.SigninName + ',' + message->contact.FriendlyName + ',' + message->text;
  }
  void SwitchOn(const std::string& name) { applications_.Switch(name, true); }

  IniStore store_ = Store();
  SeenApplications applications_{store_};
  NotificationRules rules_{applications_};
};

TEST_F(NotificationRulesTest, OnlyApplicationsThatAreOnAreRead) {
  SwitchOn("Chat");
  EXPECT_EQ(Read(Shown("Chat", "Anna Baker", "<b>hello</b> &amp; welcome")),
            "Chat:Anna Baker,Anna Baker,hello & welcome");
  EXPECT_EQ(Read(Shown("Other", "Anna Baker", "hello")), "-");
}

TEST_F(NotificationRulesTest, AnApplicationIsTakenIntoTheListOnce) {
  int added = 0;
  rules_.ApplicationAdded = [&] { ++added; };
  EXPECT_EQ(Read(Shown("Chat", "Anna", "hello")), "-");
  EXPECT_EQ(Read(Shown("Chat", "Anna", "hello")), "-");
  EXPECT_EQ(added, 1);
  ASSERT_EQ(applications_.All().size(), 1U);
  EXPECT_EQ(applications_.All().front().Name, "Chat");
}

TEST_F(NotificationRulesTest, ADesktopEntryServesWhereThereIsNoName) {
  SwitchOn("org.example.Chat");
  Notification nameless = Shown(" \n", "Anna", "hello");
  EXPECT_EQ(Read(nameless), "-");
  EXPECT_EQ(applications_.All().size(), 1U);
  nameless.desktop_entry = "org.example.Chat";
  EXPECT_EQ(Read(nameless), "org.example.Chat:Anna,Anna,hello");
}

TEST_F(NotificationRulesTest, AGaugeIsNeitherReadNorListed) {
  SwitchOn("Chat");
  Notification gauge = Shown("Chat", "Volume", "50 %");
  gauge.is_gauge = true;
  EXPECT_EQ(Read(gauge), "-");
  gauge.application = "volume keys";
  EXPECT_EQ(Read(gauge), "-");
  EXPECT_EQ(applications_.All().size(), 1U);
}

TEST_F(NotificationRulesTest, AHeadingAloneIsSaidInTheNameOfTheApplication) {
  SwitchOn("builder");
  EXPECT_EQ(Read(Shown("builder", "The build is done", "")),
            "builder:builder,builder,The build is done");
  EXPECT_EQ(Read(Shown("builder", "", "It failed")), "builder:builder,builder,It failed");
  EXPECT_EQ(Read(Shown("builder", "", "")), "-");
}

TEST_F(NotificationRulesTest, OnlyTheNewPartOfAReplacedNotificationIsRead) {
  SwitchOn("Chat");
  EXPECT_EQ(Read(Shown("Chat", "Anna", "one")), "Chat:Anna,Anna,one");
  Notification again = Shown("Chat", "Anna", "one");
  again.replaces = true;
  EXPECT_EQ(Read(again), "-");
  again.body = "one\ntwo";
  EXPECT_EQ(Read(again), "Chat:Anna,Anna,two");
  EXPECT_EQ(Read(Shown("Chat", "Anna", "one")), "Chat:Anna,Anna,one");
}

TEST_F(NotificationRulesTest, MailIsReadAsTheMailServiceTellsOfIt) {
  SwitchOn("Geary");
  SwitchOn("Chat");
  EXPECT_EQ(Read(Shown("Geary", "Anna\nBaker", "Lunch?")),
            "Geary:Anna Baker,Hotmail,FROM:Anna Baker\r");
  Notification mail = Shown("Chat", "Mail has come", "You have one\nFrom: Bob\nSubject: a");
  mail.category = "email.arrived";
  EXPECT_EQ(Read(mail), "Chat:Bob,Hotmail,FROM:Bob\r");
  mail.replaces = true;
  EXPECT_EQ(Read(mail), "-");
  EXPECT_EQ(Read(Shown("Geary", "", "")), "Geary:Geary,Hotmail,FROM:Geary\r");
}

TEST_F(NotificationRulesTest, NobodyPosesAsTheMailService) {
  SwitchOn("Chat");
  EXPECT_EQ(Read(Shown("Chat", "HotMail", "INBOX-UNREAD: none")),
            "Chat:HotMail,Chat:HotMail,INBOX-UNREAD: none");
}

TEST_F(NotificationRulesTest, WhatAnotherSourceTellsIsNotReadTwice) {
  SwitchOn("Pidgin");
  std::string asked;
  rules_.HeardElsewhere = [&](const std::string& application) {
    asked = application;
    return true;
  };
  EXPECT_EQ(Read(Shown("Pidgin", "Anna", "hello")), "-");
  EXPECT_EQ(asked, "pidgin");
  rules_.HeardElsewhere = [](const std::string&) { return false; };
  EXPECT_EQ(Read(Shown("Pidgin", "Anna", "hello")), "Pidgin:Anna,Anna,hello");
}

TEST_F(NotificationRulesTest, OwnNotificationsAreReadWhateverIsSwitchedOn) {
  rules_.SetOwn(":1.5", "Notifications");
  EXPECT_EQ(Read(Shown("Brenwick", "Brenwick", "Can you &lt;hear&gt; me?")),
            ",Notifications,Can you <hear> me?");
  EXPECT_TRUE(applications_.All().empty());
  rules_.SetOwn("", "");
  EXPECT_EQ(Read(Shown("Brenwick", "Brenwick", "Can you hear me?")), "-");
  Notification nobodys = Shown("Brenwick", "Brenwick", "Can you hear me?");
  nobodys.sender.clear();
  EXPECT_EQ(Read(nobodys), "-");
}

TEST_F(NotificationRulesTest, NamesAreCutToALengthThatAListCanShow) {
  SwitchOn(std::string(128, 'a'));
  EXPECT_EQ(Read(Shown(std::string(500, 'a'), std::string(5'000, 'y'), "hello")),
            std::string(128, 'a') + ':' + std::string(1024, 'y') + ',' + std::string(1024, 'y') +
                ",hello");
}

}  // namespace
}  // namespace brenwick

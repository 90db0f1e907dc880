// What Pidgin or Finch tells, and what the program hears of it.
#include <QDateTime>

#include "unit/desktop/purple/PurpleFixture.h"

namespace brenwick {
namespace {

class PurpleEventsTest : public PurpleFixture {
 protected:
  static constexpr int kAnna = 11;
  static constexpr int kBen = 12;

  std::string Anna(const std::string& event, int state) {
    return event + " Anna Baker (anna@home): " + std::to_string(state) + "\n";
  }
  // A contact of the first account writes what was sent so many seconds after now.
  void SayFrom(int seconds, const QString& message) {
    purple.Do([&] {
      const int number = 1000 + static_cast<int>(purple.messages.size());
      const auto now = static_cast<int>(QDateTime::currentSecsSinceEpoch());
      purple.messages[number] = {message, now + seconds};
      MockPurple::Conversation& conversation = purple.conversations[500];
      conversation = {1, 1, "anna@home", "", conversation.history};
      conversation.history.insert(conversation.history.begin(), number);
    });
    purple.Say("anna@home/pc", message);
  }
  void EnterRoom() {
    purple.Do([this] { purple.conversations[600] = {2, 1, "lobby@rooms", "me", {}}; });
  }
  void SayInRoom(const QString& nick, const QString& message, unsigned flags = 2) {
    purple.Signal("ReceivedChatMsg", {1, nick, message, 600, flags});
  }
};

// Messages

TEST_F(PurpleEventsTest, AMessageIsItsSendersWithoutTheDevice) {
  ASSERT_NO_FATAL_FAILURE(ComeAndAttach());
  purple.Say("anna@home/phone", "Fish &amp; <b>chips</b><BR>&lt;today&gt; 😀");
  EXPECT_TRUE(Awaited("text Anna Baker (anna@home): Fish & chips\n<today> 😀\n"));
}

TEST_F(PurpleEventsTest, AStrangersMessageIsRaisedUnderTheId) {
  ASSERT_NO_FATAL_FAILURE(ComeAndAttach());
  purple.Say("Eve@Elsewhere/pc", "hello");
  EXPECT_TRUE(Awaited("text eve@elsewhere (eve@elsewhere): hello\n"));
}

TEST_F(PurpleEventsTest, OnlyWhatAPersonSaysToTheUserIsRaised) {
  ASSERT_NO_FATAL_FAILURE(ComeAndAttach());
  for (const unsigned flag : {0x1U, 0x4U, 0x8U, 0x200U, 0x2000U}) {
    purple.Say("anna@home", "flag " + QString::number(flag), 2U | flag);
  }
  EXPECT_TRUE(AwaitedUntilNow(""));
}

TEST_F(PurpleEventsTest, WhatWasKeptForTheUserSinceBeforeTheSignOnIsNotRaised) {
  ASSERT_NO_FATAL_FAILURE(ComeAndAttach());
  purple.SignOn(1);
  SayFrom(-3600, "an hour ago");
  SayFrom(-10, "ten seconds ago");
  SayFrom(0, "just now");
  EXPECT_TRUE(AwaitedUntilNow("text Anna Baker (anna@home): just now\n"));
}

TEST_F(PurpleEventsTest, AnOldMessageIsToldFromThoseThatArriveWithIt) {
  ASSERT_NO_FATAL_FAILURE(ComeAndAttach());
  purple.Do([this] {
    const auto now = static_cast<int>(QDateTime::currentSecsSinceEpoch());
    purple.messages[1001] = {"old", now - 100};
    purple.messages[1002] = {"new", now};
    purple.conversations[500] = {1, 1, "anna@home", "", {1002, 1001}};
  });
  purple.SignOn(1);
  purple.Say("anna@home/pc", "old");
  purple.Say("anna@home/pc", "new");
  EXPECT_TRUE(AwaitedUntilNow("text Anna Baker (anna@home): new\n"));
}

TEST_F(PurpleEventsTest, AMessageThatCameLateWhileTheUserWasThereIsRaised) {
  ASSERT_NO_FATAL_FAILURE(ComeAndAttach());
  SayFrom(-3600, "from before the program started");
  EXPECT_TRUE(AwaitedUntilNow("text Anna Baker (anna@home): from before the program started\n"));
}

TEST_F(PurpleEventsTest, AMessageWhoseTimeIsNotKnownIsRaised) {
  ASSERT_NO_FATAL_FAILURE(ComeAndAttach());
  purple.SignOn(1);
  purple.Say("anna@home/pc", "hello");
  EXPECT_TRUE(Awaited("text Anna Baker (anna@home): hello\n"));
}

TEST_F(PurpleEventsTest, APrivateMessageFromARoomIsItsPlaces) {
  ASSERT_NO_FATAL_FAILURE(ComeAndAttach());
  EnterRoom();
  purple.Say("lobby@rooms/Eve", "psst");
  EXPECT_TRUE(Awaited("text Eve (lobby@rooms/Eve): psst\n"));
}

// Group chats

TEST_F(PurpleEventsTest, GroupChatsAreRaisedWhenTheUserWantsThem) {
  ASSERT_NO_FATAL_FAILURE(ComeAndAttach());
  EnterRoom();
  SayInRoom("Eve", "one");
  ASSERT_TRUE(AwaitedUntilNow(""));
  messenger->SetGroupChats(true);
  SayInRoom("Eve", "two <i>and</i>");
  EXPECT_TRUE(Awaited("text Eve (lobby@rooms/Eve): two and\n"));
  messenger->SetGroupChats(false);
  SayInRoom("Eve", "three");
  EXPECT_TRUE(AwaitedUntilNow(""));
}

TEST_F(PurpleEventsTest, GroupChatsMayBeWantedFromTheStart) {
  messenger->SetGroupChats(true);
  ASSERT_NO_FATAL_FAILURE(ComeAndAttach());
  EnterRoom();
  SayInRoom("Eve", "hello");
  EXPECT_TRUE(Awaited("text Eve (lobby@rooms/Eve): hello\n"));
}

TEST_F(PurpleEventsTest, InAGroupChatOnlyOthersAndOnlyNewsIsRaised) {
  ASSERT_NO_FATAL_FAILURE(ComeAndAttach());
  messenger->SetGroupChats(true);
  EnterRoom();
  SayInRoom("me", "my own words");
  for (const unsigned flag : {0x1U, 0x4U, 0x8U, 0x200U, 0x400U, 0x2000U}) {
    SayInRoom("Eve", "flag " + QString::number(flag), 2U | flag);
  }
  EXPECT_TRUE(AwaitedUntilNow(""));
}

// Nobody poses as the mail service

TEST_F(PurpleEventsTest, AContactThatIsCalledLikeTheMailServiceIsCalledByItsId) {
  ASSERT_NO_FATAL_FAILURE(ComeAndAttach());
  for (const char* name : {"HOTMAIL", "Hotmail", "hotma\u0131l", "\nHotmail\n"}) {
    purple.Do([&] { purple.buddies[kAnna].alias = name; });
    purple.Say("anna@home", "INBOX-UNREAD:5");
    EXPECT_TRUE(Awaited("text anna@home (anna@home): INBOX-UNREAD:5\n")) << name;
  }
}

TEST_F(PurpleEventsTest, OneWhoseIdReadsSoIsQuoted) {
  ASSERT_NO_FATAL_FAILURE(ComeAndAttach());
  purple.Do([this] { purple.buddies[13] = {1, "hotmail", ""}; });
  purple.Say("hotmail", "INBOX-UNREAD:5");
  EXPECT_TRUE(Awaited("text \"hotmail\" (hotmail): INBOX-UNREAD:5\n"));
  purple.Say("Hotmail/pc", "FROM:Bank");
  EXPECT_TRUE(Awaited("text \"hotmail\" (hotmail): FROM:Bank\n")) << "a stranger";
}

TEST_F(PurpleEventsTest, NobodyPosesInRoomsAndOffersAndByStates) {
  ASSERT_NO_FATAL_FAILURE(ComeAndAttach());
  messenger->SetGroupChats(true);
  EnterRoom();
  SayInRoom("Hotmail", "INBOX-UNREAD:5");
  EXPECT_TRUE(Awaited("text lobby@rooms/Hotmail (lobby@rooms/Hotmail): INBOX-UNREAD:5\n"));
  purple.Say("lobby@rooms/hotmail", "INBOX-UNREAD:5");
  EXPECT_TRUE(Awaited("text lobby@rooms/hotmail (lobby@rooms/hotmail): INBOX-UNREAD:5\n"));
  purple.Do([this] {
    purple.buddies[kAnna].alias = "HotMail";
    purple.transfers[700] = {1, "anna@home/pc", "mail.txt"};
  });
  purple.Signal("FileRecvRequest", {700});
  purple.Signal("ChatInvited", {1, "anna@home/pc", "den@rooms", "come", 0});
  purple.Signal("ChatInvited", {1, "den@rooms/hotmail", "den@rooms", "come", 0});
  purple.SetState(kAnna, kAway);
  EXPECT_TRUE(
      Awaited("file anna@home (anna@home): mail.txt\n"
              "chat anna@home (anna@home): den@rooms\n"
              "chat den@rooms/hotmail (den@rooms/hotmail): den@rooms\n"
              "changed anna@home (anna@home): 34\n"));
}

// Offers and mail

TEST_F(PurpleEventsTest, AFileThatIsOfferedIsRaised) {
  ASSERT_NO_FATAL_FAILURE(ComeAndAttach());
  purple.Do([this] { purple.transfers[700] = {1, "anna@home/pc", "holiday photo.jpg"}; });
  purple.Signal("FileRecvRequest", {700});
  EXPECT_TRUE(Awaited("file Anna Baker (anna@home): holiday photo.jpg\n"));
}

TEST_F(PurpleEventsTest, AFileThatTheUserSendsIsNot) {
  ASSERT_NO_FATAL_FAILURE(ComeAndAttach());
  purple.Do([this] { purple.transfers[700] = {1, "anna@home/pc", "mine.jpg", 1}; });
  purple.Signal("FileRecvRequest", {700});
  EXPECT_TRUE(AwaitedUntilNow(""));
}

TEST_F(PurpleEventsTest, WhatIsOfferedIsCalledByOneLine) {
  ASSERT_NO_FATAL_FAILURE(ComeAndAttach());
  purple.Do([this] {
    purple.buddies[kAnna].alias = "Anna\nBaker";
    purple.transfers[700] = {1, "anna@home/pc", "a\r\nb.txt" + QString("x").repeated(2000)};
  });
  purple.Signal("FileRecvRequest", {700});
  EXPECT_TRUE(Awaited("file Anna Baker (anna@home): a  b.txt" + std::string(1024 - 8, 'x') + "\n"));
  purple.Signal("ChatInvited", {1, "eve\n@home/pc", "lobby\n@rooms", "come", 0});
  EXPECT_TRUE(Awaited("chat eve @home (eve @home): lobby @rooms\n"));
}

TEST_F(PurpleEventsTest, AnInvitationToAChatIsRaised) {
  ASSERT_NO_FATAL_FAILURE(ComeAndAttach());
  purple.Signal("ChatInvited", {1, "anna@home/pc", "lobby@rooms", "come", 0});
  purple.Signal("ChatInvited", {1, "lobby@rooms/Eve", "lobby@rooms", "come", 0});
  EXPECT_TRUE(
      Awaited("chat Anna Baker (anna@home): lobby@rooms\n"
              "chat Eve (lobby@rooms/Eve): lobby@rooms\n"));
}

TEST_F(PurpleEventsTest, MailIsTheMailServicesNotice) {
  ASSERT_NO_FATAL_FAILURE(ComeAndAttach());
  purple.Signal("DisplayingEmailNotification",
                {"subject", "Anna Baker <anna@example.org>", "me@home", "http://mail"});
  purple.Signal("DisplayingEmailsNotification", {0, 0, 0, 0, 3U});
  EXPECT_TRUE(
      Awaited("text Hotmail (): FROM:Anna Baker\r\n"
              "text Hotmail (): INBOX-UNREAD:3\r\n"));
}

TEST_F(PurpleEventsTest, NoMailIsNoNotice) {
  ASSERT_NO_FATAL_FAILURE(ComeAndAttach());
  purple.Signal("DisplayingEmailsNotification", {0, 0, 0, 0, 0U});
  EXPECT_TRUE(AwaitedUntilNow(""));
}

// States

TEST_F(PurpleEventsTest, EachStateOfAContactIsRaisedOnce) {
  ASSERT_NO_FATAL_FAILURE(ComeAndAttach());
  const std::pair<int, int> kChanges[] = {
      {kAway, MSTATE_AWAY},        {kExtendedAway, MSTATE_OUT_TO_LUNCH},
      {kUnavailable, MSTATE_BUSY}, {kInvisible, MSTATE_INVISIBLE},
      {kMobile, MSTATE_ONLINE},    {kOffline, MSTATE_OFFLINE},
      {kAvailable, MSTATE_ONLINE},
  };
  for (const auto& [primitive, state] : kChanges) {
    purple.SetState(kAnna, primitive);
    EXPECT_TRUE(Awaited(Anna("changed", state)));
    purple.SetState(kAnna, primitive);
    EXPECT_TRUE(AwaitedUntilNow("")) << "a new text of the same state";
  }
  purple.SetState(kAnna, kMobile);
  purple.SetState(kAnna, kMood);
  EXPECT_TRUE(AwaitedUntilNow(""));
}

TEST_F(PurpleEventsTest, ChangesThatComeAtOnceAreAllRaised) {
  ASSERT_NO_FATAL_FAILURE(ComeAndAttach());
  for (const int primitive : {kAway, kUnavailable, kAvailable}) purple.SetState(kAnna, primitive);
  EXPECT_TRUE(Awaited(Anna("changed", 34) + Anna("changed", 10) + Anna("changed", 2)));
}

TEST_F(PurpleEventsTest, IdleIsAStateOfItsOwnOfWhoIsOnline) {
  ASSERT_NO_FATAL_FAILURE(ComeAndAttach());
  purple.SetIdle(kAnna, true);
  EXPECT_TRUE(Awaited(Anna("changed", MSTATE_IDLE)));
  purple.SetState(kAnna, kAway);
  EXPECT_TRUE(Awaited(Anna("changed", MSTATE_AWAY)));
  purple.SetIdle(kAnna, false);
  purple.SetIdle(kAnna, true);
  EXPECT_TRUE(AwaitedUntilNow(""));
  purple.SetState(kAnna, kAvailable);
  EXPECT_TRUE(Awaited(Anna("changed", MSTATE_IDLE)));
  purple.SetIdle(kAnna, false);
  EXPECT_TRUE(Awaited(Anna("changed", MSTATE_ONLINE)));
}

TEST_F(PurpleEventsTest, StatesAreFoundWhenTheClientIsMet) {
  purple.buddies[11].primitive = kUnavailable;
  purple.buddies[12].primitive = kAvailable;
  purple.buddies[12].idle = true;
  purple.Come();
  Attach();
  EXPECT_TRUE(Awaited("found Anna Baker (anna@home): 10\nfound ben@home (ben@home): 18\n"));
  purple.SetState(kAnna, kUnavailable);
  EXPECT_TRUE(AwaitedUntilNow(""));
}

TEST_F(PurpleEventsTest, OwnSignOffTakesTheContactsAlong) {
  ASSERT_NO_FATAL_FAILURE(ComeAndAttach());
  purple.SignOff(1);
  EXPECT_TRUE(Awaited(Anna("found", 1) + "own 1\n"));
  EXPECT_EQ(messenger->MyStatus(), MSTATE_OFFLINE);
  EXPECT_TRUE(AwaitConnection({"Pidgin", ConnectionState::Attached, ""}));
}

TEST_F(PurpleEventsTest, WhoIsThereAtTheSignOnIsFound) {
  Restart({.burst = {kLong, kLong}, .patience = kLong});
  purple.accounts[1].connected = false;
  purple.buddies[11].primitive = kOffline;
  purple.Come();
  Attach();
  purple.SignOn(1);
  ASSERT_TRUE(Awaited("own 2\n" + Anna("found", 1) + "found ben@home (ben@home): 1\n"));
  purple.SetState(kAnna, kAway);
  EXPECT_TRUE(Awaited(Anna("found", 34)));
  purple.SetState(kAnna, kAvailable);
  EXPECT_TRUE(Awaited(Anna("changed", 2))) << "she was there already";
}

TEST_F(PurpleEventsTest, WhoComesLongAfterTheSignOnIsAnnounced) {
  purple.buddies[11].primitive = kOffline;
  purple.Come();
  Attach();
  ASSERT_TRUE(Awaited(Anna("found", 1) + "found ben@home (ben@home): 1\n"));
  purple.SignOn(1);
  ASSERT_TRUE(AwaitedUntilNow(""));
  purple.SetState(kAnna, kAvailable);
  EXPECT_TRUE(Awaited(Anna("changed", 2)));
}

TEST_F(PurpleEventsTest, AContactThatIsNewInTheListHasNotGone) {
  ASSERT_NO_FATAL_FAILURE(ComeAndAttach());
  purple.Do([this] { purple.buddies[14] = {1, "dora@home", "Dora"}; });
  purple.SetState(14, kOffline);
  EXPECT_TRUE(Awaited("found Dora (dora@home): 1\n"));
  EXPECT_TRUE(messenger->Knows("dora@home"));
}

// The user's own state

TEST_F(PurpleEventsTest, OwnStateIsRaisedWhenItChanges) {
  ASSERT_NO_FATAL_FAILURE(ComeAndAttach());
  for (const auto& [primitive, state] : {std::pair(kAway, "own 34\n"),
                                         {kInvisible, "own 6\n"},
                                         {kUnavailable, "own 10\n"},
                                         {kAvailable, "own 2\n"}}) {
    purple.SetOwnState(1, primitive);
    EXPECT_TRUE(Awaited(state));
    purple.SetOwnState(1, primitive);
    EXPECT_TRUE(AwaitedUntilNow(""));
  }
  purple.SetOwnState(1, kMood);
  EXPECT_TRUE(AwaitedUntilNow(""));
  EXPECT_EQ(messenger->MyStatus(), MSTATE_ONLINE);
}

TEST_F(PurpleEventsTest, TheUserIsSignedInWhileOneAccountIs) {
  purple.accounts[2] = {"me@work", "", kAvailable, false};
  ASSERT_NO_FATAL_FAILURE(ComeAndAttach());
  purple.SetOwnState(1, kAway);
  ASSERT_TRUE(Awaited("own 34\n"));
  purple.SignOn(2);
  EXPECT_TRUE(Awaited("own 2\n"));
  EXPECT_TRUE(AwaitConnection({"Pidgin", ConnectionState::Attached, "me@home, me@work"}));
  purple.SignOff(1);
  EXPECT_TRUE(AwaitedUntilNow(Anna("found", 1)));
  EXPECT_EQ(messenger->MyStatus(), MSTATE_ONLINE);
  purple.SignOff(2);
  EXPECT_TRUE(Awaited("own 1\n"));
}

TEST_F(PurpleEventsTest, AContactOfTwoAccountsHasTheBetterState) {
  purple.accounts[2] = {"me@work", ""};
  purple.buddies[21] = {2, "anna@home", "Anna Baker", kAway};
  ASSERT_NO_FATAL_FAILURE(ComeAndAttach());
  purple.SetState(kAnna, kUnavailable);
  EXPECT_TRUE(Awaited(Anna("changed", 10)));
  purple.SetState(kAnna, kOffline);
  EXPECT_TRUE(Awaited(Anna("changed", 34)));
  purple.SignOff(2);
  EXPECT_TRUE(Awaited(Anna("found", 1)));
}

}  // namespace
}  // namespace brenwick

// Attaching to Pidgin or Finch, and what the program asks of it.
#include "desktop/purple/PurpleMessenger.h"

#include <QDBusConnectionInterface>
#include <QDeadlineTimer>

#include "base/Failure.h"
#include "unit/desktop/purple/PurpleFixture.h"

namespace brenwick {
namespace {

const Connection kAttached{"Pidgin", ConnectionState::Attached, "me@home"};
const Connection kWaiting{"Pidgin or Finch", ConnectionState::Waiting, ""};
constexpr const char* kAllFound = "found Anna Baker (anna@home): 2\nfound ben@home (ben@home): 1\n";
constexpr const char* kAllGone = "found Anna Baker (anna@home): 1\nown 1\n";

using PurpleMessengerTest = PurpleFixture;

TEST_F(PurpleMessengerTest, KnowsAtOnceHowTheUserIsSignedInToAClientThatRuns) {
  purple.accounts[1].primitive = kAway;
  purple.Come();
  Attach();
  EXPECT_EQ(messenger->MyStatus(), MSTATE_AWAY);
  EXPECT_EQ(messenger->MyName(), "Me Myself");
  EXPECT_TRUE(Awaited(kAllFound)) << "the user's own state is no news";
  EXPECT_TRUE(AwaitConnection(kAttached));
}

TEST_F(PurpleMessengerTest, IsCalledByTheIdOfAUserWithoutAName) {
  purple.accounts[1].alias = "";
  purple.Come();
  Attach();
  EXPECT_EQ(messenger->MyName(), "me@home");
}

TEST_F(PurpleMessengerTest, WaitsForAClientThatComesLater) {
  Attach();
  EXPECT_EQ(messenger->MyStatus(), MSTATE_OFFLINE);
  EXPECT_EQ(messenger->MyName(), "");
  EXPECT_EQ(messenger->Describe(), kWaiting);
  purple.Come();
  EXPECT_TRUE(Awaited(std::string("own 2\n") + kAllFound));
  EXPECT_TRUE(AwaitConnection(kAttached));
  EXPECT_EQ(messenger->MyStatus(), MSTATE_ONLINE);
}

TEST_F(PurpleMessengerTest, DetachesFromAClientThatGoesAndAttachesWhenItIsBack) {
  ASSERT_NO_FATAL_FAILURE(ComeAndAttach());
  purple.Go();
  EXPECT_TRUE(Awaited(kAllGone));
  EXPECT_TRUE(AwaitConnection(kWaiting));
  purple.ui = "gnt-purple";
  purple.Come();
  EXPECT_TRUE(Awaited("own 2\nfound Anna Baker (anna@home): 2\n"));
  EXPECT_TRUE(AwaitConnection({"Finch", ConnectionState::Attached, "me@home"}));
  purple.Say("anna@home/pc", "back");
  EXPECT_TRUE(Awaited("text Anna Baker (anna@home): back\n")) << "once";
  EXPECT_TRUE(AwaitedUntilNow(""));
}

TEST_F(PurpleMessengerTest, HearsNobodyButTheClient) {
  ASSERT_NO_FATAL_FAILURE(ComeAndAttach());
  MockPurple impostor{bus.Connect("impostor")};
  impostor.Say("anna@home/pc", "believe me");
  impostor.Signal("AccountSignedOff", {1});
  // The bus has passed that on when it has answered the one who sent it.
  ASSERT_TRUE(bus.Connect("impostor").interface()->isServiceRegistered(kPurpleService).value());
  EXPECT_TRUE(AwaitedUntilNow(""));
  QDBusConnection::disconnectFromBus("impostor");
}

TEST_F(PurpleMessengerTest, HearsNothingThatItCannotRead) {
  ASSERT_NO_FATAL_FAILURE(ComeAndAttach());
  purple.Signal("ReceivedImMsg", {1, "anna@home"});
  purple.Signal("ReceivedImMsg", {"1", "anna@home", "text", 0, 2U});
  purple.Signal("BuddySignedOff", {"anna"});
  purple.Signal("AccountSignedOff", {});
  EXPECT_TRUE(AwaitedUntilNow(""));
}

TEST_F(PurpleMessengerTest, TakesWhatIsGoneForNoError) {
  ASSERT_NO_FATAL_FAILURE(ComeAndAttach());
  purple.Signal("BuddySignedOn", {99});
  purple.Signal("BuddySignedOff", {99});
  purple.Signal("BuddyIdleChanged", {99, 0, 1});
  purple.Signal("BuddyStatusChanged", {99, 1, 2});
  purple.Signal("AccountStatusChanged", {99, 1, 2});
  purple.Signal("AccountSignedOff", {99});
  purple.Signal("FileRecvRequest", {99});
  EXPECT_TRUE(AwaitedUntilNow(""));
}

TEST_F(PurpleMessengerTest, TakesAnAnswerOfAnotherTypeForNone) {
  purple.wrong_answer = "PurpleBuddyGetAlias";
  purple.Come();
  Attach();
  EXPECT_TRUE(Awaited("found anna@home (anna@home): 2\nfound ben@home (ben@home): 1\n"));
}

TEST_F(PurpleMessengerTest, OpensAConversationInTheAccountThatKnowsTheContact) {
  purple.accounts[2] = {"other@work", ""};
  purple.buddies[21] = {2, "carl@work", "Carl"};
  purple.Come();
  Attach();
  ASSERT_TRUE(Awaited(std::string(kAllFound) + "found Carl (carl@work): 1\n"));
  EXPECT_TRUE(messenger->Knows("carl@work"));
  EXPECT_FALSE(messenger->Knows("dora@work"));
  messenger->InstantMessage("carl@work");
  messenger->InstantMessage("anna@home");
  messenger->InstantMessage("dora@work");
  ASSERT_TRUE(AwaitedUntilNow(""));
  EXPECT_EQ(purple.opened, QStringList({"2 carl@work", "1 anna@home", "1 dora@work"}));
}

TEST_F(PurpleMessengerTest, KnowsNobodyOfAnAccountThatIsSignedOff) {
  ASSERT_NO_FATAL_FAILURE(ComeAndAttach());
  EXPECT_TRUE(messenger->Knows("anna@home"));
  purple.SignOff(1);
  ASSERT_TRUE(Awaited(kAllGone));
  EXPECT_FALSE(messenger->Knows("anna@home"));
}

TEST_F(PurpleMessengerTest, KnowsWhoHasWritten) {
  ASSERT_NO_FATAL_FAILURE(ComeAndAttach());
  ASSERT_TRUE(AwaitedUntilNow(""));
  EXPECT_TRUE(messenger->Knows("stranger@elsewhere"));
}

TEST_F(PurpleMessengerTest, CannotOpenAConversationWithoutAClient) {
  EXPECT_THROW(messenger->InstantMessage("anna@home"), Failure);
  Attach();
  EXPECT_THROW(messenger->InstantMessage("anna@home"), Failure);
}

TEST_F(PurpleMessengerTest, SendsATestSentenceThroughTheClient) {
  ASSERT_NO_FATAL_FAILURE(ComeAndAttach());
  messenger->Test("This is a test.");
  EXPECT_TRUE(Awaited("text Pidgin (): This is a test.\n"));
}

TEST_F(PurpleMessengerTest, HasNoTestSentenceWhereTheWayIsBroken) {
  ASSERT_NO_FATAL_FAILURE(ComeAndAttach());
  purple.Do([this] { purple.wrong_answer = "PurpleCoreGetVersion"; });
  messenger->Test("This is a test.");
  EXPECT_TRUE(AwaitedUntilNow(""));
}

TEST_F(PurpleMessengerTest, FailsWithoutABus) {
  messenger = std::make_unique<PurpleMessenger>(
      end, QDBusConnection::connectToBus(QString("unix:path=/nowhere"), "nowhere"));
  Attach();
  EXPECT_EQ(messenger->Describe().State, ConnectionState::Failed);
  EXPECT_EQ(messenger->MyStatus(), MSTATE_OFFLINE);
  EXPECT_THROW(messenger->InstantMessage("anna@home"), Failure);
  messenger->Test("This is a test.");
  QDBusConnection::disconnectFromBus("nowhere");
}

TEST_F(PurpleMessengerTest, TellsWhenItsDescriptionChanges) {
  int changes = 0;
  messenger->Changed = [&] { ++changes; };
  ASSERT_NO_FATAL_FAILURE(ComeAndAttach());
  ASSERT_TRUE(QTest::qWaitFor([&] { return changes == 1; }));
  purple.Go();
  ASSERT_TRUE(QTest::qWaitFor([&] { return messenger->Describe() == kWaiting; }));
  EXPECT_GT(changes, 1);
}

TEST_F(PurpleMessengerTest, SaysOfAClientThatHangsThatItDoesNotAnswer) {
  Restart({.burst = {kNone, kNone},
           .patience = std::chrono::seconds(1),
           .before_retry = std::chrono::milliseconds(20)});
  purple.silent_from = "PurpleBuddyGetAlias";
  purple.Come();
  Attach();
  EXPECT_TRUE(AwaitConnection({"Pidgin", ConnectionState::Failed, "It does not answer"}));
  purple.Do([this] { purple.silent_from.clear(); });
  EXPECT_TRUE(AwaitConnection(kAttached));
  EXPECT_TRUE(QTest::qWaitFor([&] {
    return events.lines.find("found Anna Baker (anna@home)") != std::string::npos;
  })) << events.lines;
}

TEST_F(PurpleMessengerTest, LosesNoMessageToAClientThatHangs) {
  Restart({.burst = {kNone, kNone}, .patience = std::chrono::seconds(1), .before_retry = kLong});
  ASSERT_NO_FATAL_FAILURE(ComeAndAttach());
  purple.Do([this] { purple.silent_from = "PurpleFindBuddy"; });
  purple.Say("anna@home/pc", "one");
  purple.Say("anna@home/pc", "two");
  EXPECT_TRUE(Awaited("text anna@home (anna@home): one\ntext anna@home (anna@home): two\n"));
}

TEST_F(PurpleMessengerTest, FindsWhatHappenedWhileTheClientDidNotAnswer) {
  Restart({.burst = {kNone, kNone},
           .patience = std::chrono::seconds(1),
           .before_retry = std::chrono::milliseconds(20)});
  ASSERT_NO_FATAL_FAILURE(ComeAndAttach());
  purple.Do([this] { purple.silent_from = "PurpleBuddyGetName"; });
  purple.SetState(12, kAvailable);
  ASSERT_TRUE(AwaitConnection({"Pidgin", ConnectionState::Failed, "It does not answer"}));
  purple.Do([this] { purple.silent_from.clear(); });
  EXPECT_TRUE(Awaited("found ben@home (ben@home): 2\n"));
}

TEST_F(PurpleMessengerTest, RaisesNothingAfterItWasDetached) {
  ASSERT_NO_FATAL_FAILURE(ComeAndAttach());
  const int before = purple.Calls();
  purple.Say("anna@home", "too late");
  // The message is on its way to the program's loop, which does not run.
  const QDeadlineTimer limit(std::chrono::seconds(60));
  while (purple.Calls() == before) ASSERT_FALSE(limit.hasExpired());
  messenger->Detach();
  QCoreApplication::processEvents();
  EXPECT_EQ(events.lines, "");
  messenger->Detach();
}

TEST_F(PurpleMessengerTest, ReachesNoProgramThatHasEnded) {
  ASSERT_NO_FATAL_FAILURE(ComeAndAttach());
  events.Heard = [] { throw ProgramEnd{}; };
  purple.Say("anna@home", "the end");
  purple.Say("anna@home", "more");
  ASSERT_TRUE(QTest::qWaitFor([&] { return end.Ended(); }));
  messenger.reset();
  EXPECT_EQ(events.lines, "text Anna Baker (anna@home): the end\n");
}

}  // namespace
}  // namespace brenwick

#include "sources/SourceHub.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "base/Failure.h"
#include "support/FakeSource.h"
#include "support/RecordingListener.h"

namespace brenwick {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class SourceHubTest : public testing::Test {
 protected:
  SourceHubTest() { sources.Attach(program); }

  FakeSource one;
  FakeSource two;
  RecordingListener program;
  SourceHub sources{{&one, &two}};
};

TEST_F(SourceHubTest, HandsOnWhatEachRaises) {
  one.Send("ann", "hello");
  two.raise->OnUserStateChanged({"bob", ""}, MSTATE_AWAY);
  one.raise->OnUserStateFound({"cid", ""}, MSTATE_BUSY);
  two.raise->OnAppInviteReceived({"dan", ""}, "chess");
  one.raise->OnFileTransferInviteReceived({"eve", ""}, "a.txt");
  two.raise->OnNewerClientAvailable("http://x");
  one.raise->OnOtherEvent("OnLogoff");
  EXPECT_THAT(program.events, ElementsAre("ann,ann,,hello", "bob changed 34", "cid found 10",
                                          "dan invites to chess", "eve offers a.txt",
                                          "newer http://x", "OnLogoff"));
}

TEST_F(SourceHubTest, LetAnEventWaitForTheHandlerBeforeIt) {
  program.Meanwhile = [&] {
    two.Send("bob", "second");
    one.Send("ann", "third");
    EXPECT_THAT(program.events, IsEmpty());
  };
  one.Send("ann", "first");
  EXPECT_THAT(program.events, ElementsAre("ann,ann,,first", "bob,bob,,second", "ann,ann,,third"));
}

TEST_F(SourceHubTest, HandlesWhatWaitsInsideAHandlerThatWaitsItself) {
  program.Meanwhile = [&] {
    two.Send("bob", "second");
    one.Send("ann", "third");
    sources.HandleWaiting();
    EXPECT_THAT(program.events, ElementsAre("bob,bob,,second", "ann,ann,,third"));
    one.Send("ann", "fourth");
    EXPECT_THAT(program.events, ElementsAre("bob,bob,,second", "ann,ann,,third"));
  };
  one.Send("ann", "first");
  EXPECT_THAT(program.events, ElementsAre("bob,bob,,second", "ann,ann,,third", "ann,ann,,first",
                                          "ann,ann,,fourth"));
}

TEST_F(SourceHubTest, HasNothingToHandleWhileNothingWaits) {
  sources.HandleWaiting();
  EXPECT_THAT(program.events, IsEmpty());
}

TEST_F(SourceHubTest, HandsOnNothingOnceDetached) {
  MessengerListener& raise = *one.raise;
  program.Meanwhile = [&] {
    raise.OnOtherEvent("OnLogoff");
    sources.Detach();
    raise.OnOtherEvent("OnUserJoin");
  };
  raise.OnOtherEvent("OnLogonResult");
  raise.OnTextReceived({"ann", ""}, "", "late");
  EXPECT_THAT(program.events, ElementsAre("OnLogonResult"));
  EXPECT_EQ(one.raise, nullptr);
  EXPECT_EQ(two.raise, nullptr);
}

TEST_F(SourceHubTest, GoOnAfterAHandlerThatThrew) {
  program.Meanwhile = [] { throw ProgramEnd{}; };
  EXPECT_THROW(one.Send("ann", "first"), ProgramEnd);
  one.Send("ann", "second");
  EXPECT_THAT(program.events, ElementsAre("ann,ann,,second"));
}

TEST_F(SourceHubTest, AreSignedInWhileOneIs) {
  EXPECT_EQ(sources.MyStatus(), MSTATE_OFFLINE);
  two.ChangeStatus(MSTATE_ONLINE);
  one.ChangeStatus(MSTATE_AWAY);
  two.ChangeStatus(MSTATE_OFFLINE);
  EXPECT_EQ(sources.MyStatus(), MSTATE_AWAY);
  one.ChangeStatus(MSTATE_OFFLINE);
  EXPECT_THAT(program.events, ElementsAre("own 2", "own 34", "own 1"));
}

TEST_F(SourceHubTest, TellTheOwnStateOnlyWhereItIsAnother) {
  one.ChangeStatus(MSTATE_ONLINE);
  two.ChangeStatus(MSTATE_AWAY);
  one.ChangeStatus(MSTATE_ONLINE);
  EXPECT_THAT(program.events, ElementsAre("own 2"));
}

TEST_F(SourceHubTest, DoNotTellTheStateThatTheProgramAskedFor) {
  sources.Detach();
  one.status = MSTATE_ONLINE;
  sources.Attach(program);
  one.ChangeStatus(MSTATE_ONLINE);
  EXPECT_THAT(program.events, IsEmpty());
}

TEST_F(SourceHubTest, KnowTheFirstNameThatThereIs) {
  EXPECT_EQ(sources.MyName(), "");
  two.name = "Zoe";
  EXPECT_EQ(sources.MyName(), "Zoe");
  one.name = "Ann";
  EXPECT_EQ(sources.MyName(), "Ann");
}

TEST_F(SourceHubTest, OpenAConversationWhereTheContactWasHeardOf) {
  one.known = two.known = "ann";
  sources.InstantMessage("ann");
  two.Send("ann", "hello");
  sources.InstantMessage("ann");
  EXPECT_THAT(one.opened, ElementsAre("ann"));
  EXPECT_THAT(two.opened, ElementsAre("ann"));
  two.known.clear();
  sources.InstantMessage("ann");
  EXPECT_THAT(one.opened, ElementsAre("ann", "ann"));
}

TEST_F(SourceHubTest, OpenNothingWhereTheContactWasHeardOfAndNotKnown) {
  two.Send("ann", "hello");
  one.known = two.known = "ann";
  sources.InstantMessage("ann");
  EXPECT_THAT(one.opened, ElementsAre("ann"));
  EXPECT_THAT(two.opened, IsEmpty());
}

TEST_F(SourceHubTest, SayThatNobodyKnowsAContact) {
  std::vector<std::string> unknown;
  sources.NobodyKnows = [&](const std::string& contact) { unknown.push_back(contact); };
  sources.InstantMessage("ann");
  EXPECT_THAT(unknown, ElementsAre("ann"));
  EXPECT_THAT(one.opened, IsEmpty());
}

}  // namespace
}  // namespace brenwick

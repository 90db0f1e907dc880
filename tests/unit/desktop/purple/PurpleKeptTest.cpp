// What a server kept for the user and hands over at the sign-on, told from what is new.
#include <QDateTime>

#include "unit/desktop/purple/PurpleFixture.h"

namespace brenwick {
namespace {

class PurpleKeptTest : public PurpleFixture {
 protected:
  static constexpr int kConversation = 500;

  static int Now() { return static_cast<int>(QDateTime::currentSecsSinceEpoch()); }

  void SignOnBefore(int seconds) {
    purple.Do([&] { purple.accounts[1].login_time = Now() - seconds; });
    purple.SignOn(1);
  }
  // Is in the conversation's history from now on, and was sent so many seconds before now.
  void Keep(const QString& message, int seconds) {
    purple.Do([&] {
      const int number = 1000 + static_cast<int>(purple.messages.size());
      purple.messages[number] = {message, Now() - seconds};
      MockPurple::Conversation& conversation = purple.conversations[kConversation];
      conversation = {1, 1, "anna@home", "", conversation.history};
      conversation.history.insert(conversation.history.begin(), number);
    });
  }
  void Say(const QString& message) { purple.Say("anna@home/pc", message); }
  int AskedFor() { return purple.CallsOf("PurpleConversationMessageGetMessage"); }
};

TEST_F(PurpleKeptTest, NoneIsRaisedHoweverManyThereAre) {
  constexpr int kMany = 120;
  ASSERT_NO_FATAL_FAILURE(ComeAndAttach());
  purple.SignOn(1);
  for (int i = 0; i < kMany; ++i) Keep("kept " + QString::number(i), 3600 - i);
  Keep("new", 0);
  for (int i = 0; i < kMany; ++i) Say("kept " + QString::number(i));
  Say("new");
  EXPECT_TRUE(AwaitedUntilNow("text Anna Baker (anna@home): new\n"));
  EXPECT_EQ(AskedFor(), kMany + 1) << "each once";
}

TEST_F(PurpleKeptTest, IsWhatWasSentBeforeTheTimeOfTheSignOn) {
  ASSERT_NO_FATAL_FAILURE(ComeAndAttach());
  Keep("before", 40);
  Keep("after", 20);
  SignOnBefore(30);
  Say("before");
  Say("after");
  EXPECT_TRUE(AwaitedUntilNow("text Anna Baker (anna@home): after\n"));
}

TEST_F(PurpleKeptTest, IsWhatWasSentBeforeNowWhereTheTimeOfTheSignOnIsStillToCome) {
  ASSERT_NO_FATAL_FAILURE(ComeAndAttach());
  Keep("before", 10);
  Keep("after", -10);
  SignOnBefore(-3600);
  Say("before");
  Say("after");
  EXPECT_TRUE(AwaitedUntilNow("text Anna Baker (anna@home): after\n"));
}

TEST_F(PurpleKeptTest, ArrivesSoonAfterTheSignOn) {
  ASSERT_NO_FATAL_FAILURE(ComeAndAttach());
  Keep("late", 300);
  SignOnBefore(200);
  Say("late");
  EXPECT_TRUE(AwaitedUntilNow("text Anna Baker (anna@home): late\n"));
  EXPECT_EQ(AskedFor(), 0);
}

}  // namespace
}  // namespace brenwick

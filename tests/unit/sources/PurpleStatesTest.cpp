#include "sources/PurpleStates.h"

#include <gtest/gtest.h>

namespace brenwick {
namespace {

using std::chrono::seconds;

constexpr int kAccount = 1;
const MessengerContact kAnna{"anna@home", "Anna"};
const MessengerContact kBen{"ben@home", "Ben"};
const MessengerContact kCarl{"carl@home", "Carl"};
constexpr PurpleStates::Moment kSignOn{};

class PurpleStatesTest : public testing::Test {
 protected:
  PurpleStatesTest() { states.SignOn(kAccount, kSignOn); }

  // Whether the contact, who comes online so long after the sign-on, was there before.
  bool Found(const MessengerContact& contact, seconds after) {
    const auto news = states.Appear(kAccount, contact, {MSTATE_ONLINE, false}, kSignOn + after);
    EXPECT_TRUE(news.has_value());
    return news.has_value() && news->found;
  }

  PurpleStates states{{.quiet = seconds(2), .whole = seconds(5)}};
};

TEST_F(PurpleStatesTest, ABurstLastsUntilNobodyHasAppearedForAWhile) {
  EXPECT_TRUE(Found(kAnna, seconds(1)));
  EXPECT_FALSE(Found(kBen, seconds(3)));
  EXPECT_FALSE(Found(kCarl, seconds(3)));
}

TEST_F(PurpleStatesTest, WhoAppearsKeepsABurstGoing) {
  EXPECT_TRUE(Found(kAnna, seconds(1)));
  EXPECT_TRUE(Found(kBen, seconds(2)));
  EXPECT_TRUE(Found(kCarl, seconds(3)));
}

TEST_F(PurpleStatesTest, ABurstEndsAtLast) {
  EXPECT_TRUE(Found(kAnna, seconds(1)));
  EXPECT_TRUE(Found(kBen, seconds(2)));
  EXPECT_TRUE(Found(kCarl, seconds(3)));
  EXPECT_TRUE(Found({"dora@home", "Dora"}, seconds(4)));
  EXPECT_FALSE(Found({"eve@home", "Eve"}, seconds(5)));
}

TEST_F(PurpleStatesTest, WhoHasAppearedIsNoPartOfTheBurstAnyMore) {
  ASSERT_TRUE(Found(kAnna, seconds(1)));
  const auto gone = states.Appear(kAccount, kAnna, {MSTATE_OFFLINE, false}, kSignOn + seconds(1));
  ASSERT_TRUE(gone.has_value());
  EXPECT_FALSE(gone->found);
  EXPECT_FALSE(Found(kAnna, seconds(1)));
}

TEST_F(PurpleStatesTest, EachSignOnHasABurst) {
  ASSERT_TRUE(Found(kAnna, seconds(1)));
  ASSERT_EQ(states.SignOff(kAccount).size(), 1U);
  states.SignOn(kAccount, kSignOn + seconds(60));
  EXPECT_TRUE(Found(kAnna, seconds(61)));
}

TEST_F(PurpleStatesTest, TheBurstOfAnAccountIsItsOwn) {
  const auto other = states.Appear(2, kAnna, {MSTATE_ONLINE, false}, kSignOn + seconds(1));
  ASSERT_TRUE(other.has_value());
  EXPECT_FALSE(other->found);
}

TEST_F(PurpleStatesTest, ASignOffForgetsTheBurst) {
  EXPECT_TRUE(states.SignOff(kAccount).empty());
  EXPECT_FALSE(Found(kAnna, seconds(1)));
}

TEST(BestState, IsThatInWhichSomebodyIsReachedBest) {
  EXPECT_EQ(BestState({}), MSTATE_OFFLINE);
  EXPECT_EQ(BestState({MSTATE_OFFLINE, MSTATE_AWAY}), MSTATE_AWAY);
  EXPECT_EQ(BestState({MSTATE_AWAY, MSTATE_BUSY, MSTATE_OUT_TO_LUNCH}), MSTATE_BUSY);
  EXPECT_EQ(BestState({MSTATE_IDLE, MSTATE_ONLINE, MSTATE_INVISIBLE}), MSTATE_ONLINE);
}

TEST(StateOfPrimitive, IsNothingForWhatTellsNoState) {
  EXPECT_EQ(StateOfPrimitive(2), MSTATE_ONLINE);
  for (const int primitive : {-1, 0, 8, 9, 1000}) {
    EXPECT_EQ(StateOfPrimitive(primitive), std::nullopt) << primitive;
  }
}

}  // namespace
}  // namespace brenwick

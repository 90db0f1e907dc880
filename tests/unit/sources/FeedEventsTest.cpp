// How many events the feed takes, and which.
#include <gtest/gtest.h>

#include "sources/FeedEvents.h"
#include "sources/FeedLimit.h"

namespace brenwick {
namespace {

using std::chrono::milliseconds;

class FeedLimitTest : public testing::Test {
 protected:
  // How many of so many events are granted.
  std::size_t Granted(const std::string& sender, std::size_t events) {
    std::size_t granted = 0;
    for (std::size_t i = 0; i < events; ++i) {
      if (limit.Admit(sender) == Admission::Granted) ++granted;
    }
    return granted;
  }

  FeedLimit::Time now{};
  FeedLimit limit{[this] { return now; }};
};

TEST_F(FeedLimitTest, TakesFiftyASecondFromOneSender) {
  EXPECT_EQ(Granted("one", 80), 50U);
  EXPECT_EQ(limit.Admit("one"), Admission::TooMany);
  now += milliseconds(999);
  EXPECT_EQ(limit.Admit("one"), Admission::TooMany);
  now += milliseconds(1);
  EXPECT_EQ(Granted("one", 80), 50U);
}

TEST_F(FeedLimitTest, LooksAtAnySecondAndNotAtThoseOfTheClock) {
  EXPECT_EQ(Granted("one", 30), 30U);
  now += milliseconds(600);
  EXPECT_EQ(Granted("one", 30), 20U);
  now += milliseconds(400);
  EXPECT_EQ(Granted("one", 40), 30U);
  now += milliseconds(600);
  EXPECT_EQ(Granted("one", 40), 20U);
}

TEST_F(FeedLimitTest, TakesAsManyFromAnother) {
  EXPECT_EQ(Granted("one", 80), 50U);
  EXPECT_EQ(Granted("two", 80), 50U);
  EXPECT_EQ(limit.Senders(), 2U);
}

TEST_F(FeedLimitTest, ForgetsWhoIsSilent) {
  Granted("one", 1);
  now += milliseconds(500);
  Granted("two", 60);
  now += milliseconds(500);
  Granted("three", 1);
  EXPECT_EQ(limit.Senders(), 2U);
  now += milliseconds(1000);
  Granted("three", 1);
  EXPECT_EQ(limit.Senders(), 1U);
}

TEST_F(FeedLimitTest, ForgetsWhoIsSilentBehindOneWhoIsNot) {
  Granted("one", 1);
  Granted("two", 1);
  now += milliseconds(600);
  Granted("one", 1);
  now += milliseconds(600);
  Granted("one", 1);
  EXPECT_EQ(limit.Senders(), 1U);
}

TEST_F(FeedLimitTest, RefusesMoreSendersThanItRemembers) {
  for (std::size_t i = 0; i < FeedLimit::kMostSenders; ++i) {
    ASSERT_EQ(limit.Admit(std::to_string(i)), Admission::Granted);
  }
  EXPECT_EQ(limit.Admit("another"), Admission::TooManySenders);
  EXPECT_EQ(limit.Admit("0"), Admission::Granted);
  EXPECT_EQ(limit.Senders(), FeedLimit::kMostSenders);
  now += milliseconds(1000);
  EXPECT_EQ(limit.Admit("another"), Admission::Granted);
}

std::string ErrorOf(const std::optional<FeedError>& error) { return error ? error->name : ""; }

TEST(FeedEvents, HaveAContactThatAListCanKeep) {
  EXPECT_EQ(ErrorOf(CheckContact({"anna@x.example", "Anna"})), "");
  EXPECT_EQ(ErrorOf(CheckContact({std::string(kLongestFeedName, 'x'), ""})), "");
  for (const std::string& id :
       {std::string(), std::string(" "), std::string("a\nb"), std::string("a\r"),
        std::string("\x1B"), std::string("\xC2\x85"), std::string(kLongestFeedName + 1, 'x')}) {
    EXPECT_EQ(ErrorOf(CheckContact({id, "Anna"})), "InvalidContact") << id;
  }
  EXPECT_EQ(ErrorOf(CheckContact({"anna", "A\nB"})), "InvalidName");
  EXPECT_EQ(ErrorOf(CheckContact({"anna", std::string(kLongestFeedName + 1, 'x')})), "InvalidName");
}

TEST(FeedEvents, ComeFromNobodyCalledLikeTheMailService) {
  EXPECT_EQ(FeedContact({"anna", "HOTMAIL"}).FriendlyName, "anna");
  EXPECT_EQ(ErrorOf(CheckContact({"anna", "HOTMAIL"})), "");
  EXPECT_EQ(ErrorOf(CheckContact({"Hotmail", ""})), "InvalidContact");
  EXPECT_EQ(ErrorOf(CheckContact({"hotmail", "HOTMAIL"})), "InvalidContact");
  EXPECT_EQ(ErrorOf(CheckContact({"hotmail", "Anna"})), "");
}

TEST(FeedEvents, ShowTheContactWhereItHasNoName) {
  EXPECT_EQ(FeedContact({"anna", " "}).FriendlyName, "anna");
  EXPECT_EQ(FeedContact({"anna", "Anna Baker"}).FriendlyName, "Anna Baker");
}

TEST(FeedEvents, HaveATextOfSomeLength) {
  EXPECT_EQ(ErrorOf(CheckText("")), "InvalidText");
  EXPECT_EQ(ErrorOf(CheckText(std::string(kLongestFeedText, 'x'))), "");
  EXPECT_EQ(ErrorOf(CheckText(std::string(kLongestFeedText + 1, 'x'))), "InvalidText");
}

TEST(FeedEvents, NameTheirStates) {
  EXPECT_EQ(FeedState("online"), MSTATE_ONLINE);
  EXPECT_EQ(FeedState("idle"), MSTATE_IDLE);
  EXPECT_EQ(FeedState("Online"), std::nullopt);
  EXPECT_EQ(FeedState(""), std::nullopt);
  EXPECT_EQ(FeedStateNames(),
            "online, offline, busy, away, idle, be-right-back, on-the-phone, out-to-lunch, "
            "invisible");
}

}  // namespace
}  // namespace brenwick

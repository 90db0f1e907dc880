// How many events the feed takes, and which.
#include "sources/FeedRules.h"

#include <gtest/gtest.h>

namespace brenwick {
namespace {

using std::chrono::milliseconds;

std::string ErrorOf(const std::optional<FeedError>& error) { return error ? error->name : ""; }

std::string ErrorOf(const FeedRules::Result& result) {
  const auto* error = std::get_if<FeedError>(&result);
  return error != nullptr ? error->name : "";
}

class FeedLimitTest : public testing::Test {
 protected:
  std::string Admit(const std::string& sender) { return ErrorOf(rules.AdmitTest(sender)); }
  // How many of so many events are granted.
  std::size_t Granted(const std::string& sender, std::size_t events) {
    std::size_t granted = 0;
    for (std::size_t i = 0; i < events; ++i) {
      if (Admit(sender).empty()) ++granted;
    }
    return granted;
  }

  FeedRules::Time now{};
  FeedRules rules{[this] { return now; }};
};

TEST_F(FeedLimitTest, TakesFiftyASecondFromOneSender) {
  EXPECT_EQ(Granted("one", 80), 50U);
  EXPECT_EQ(Admit("one"), "TooManyEvents");
  now += milliseconds(999);
  EXPECT_EQ(Admit("one"), "TooManyEvents");
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
  EXPECT_EQ(rules.Senders(), 2U);
}

TEST_F(FeedLimitTest, ForgetsWhoIsSilent) {
  Granted("one", 1);
  now += milliseconds(500);
  Granted("two", 60);
  now += milliseconds(500);
  Granted("three", 1);
  EXPECT_EQ(rules.Senders(), 2U);
  now += milliseconds(1000);
  Granted("three", 1);
  EXPECT_EQ(rules.Senders(), 1U);
}

TEST_F(FeedLimitTest, ForgetsWhoIsSilentBehindOneWhoIsNot) {
  Granted("one", 1);
  Granted("two", 1);
  now += milliseconds(600);
  Granted("one", 1);
  now += milliseconds(600);
  Granted("one", 1);
  EXPECT_EQ(rules.Senders(), 1U);
}

TEST_F(FeedLimitTest, RefusesMoreSendersThanItRemembers) {
  for (std::size_t i = 0; i < FeedRules::kMostSenders; ++i) {
    ASSERT_EQ(Admit(std::to_string(i)), "");
  }
  EXPECT_EQ(Admit("another"), "TooManySenders");
  EXPECT_EQ(Admit("0"), "");
  EXPECT_EQ(rules.Senders(), FeedRules::kMostSenders);
  now += milliseconds(1000);
  EXPECT_EQ(Admit("another"), "");
}

TEST_F(FeedLimitTest, TakesAThousandContactsAndKnowsThem) {
  const auto event = [](std::size_t contact) {
    return FeedEvent{{std::to_string(contact), "name"}, "text", std::nullopt};
  };
  for (std::size_t i = 0; i < FeedRules::kMostContacts; ++i) {
    EXPECT_FALSE(rules.Knows(std::to_string(i)));
    ASSERT_EQ(ErrorOf(rules.Admit("one", event(i))), "");
    EXPECT_TRUE(rules.Knows(std::to_string(i)));
    now += milliseconds(100);
  }
  EXPECT_EQ(ErrorOf(rules.Admit("one", event(FeedRules::kMostContacts))), "TooManyContacts");
  EXPECT_EQ(ErrorOf(rules.Admit("one", event(7))), "");
}

TEST_F(FeedLimitTest, KnowsNobodyWhoseEventWasRefused) {
  Granted("one", FeedRules::kMostEvents);
  const FeedEvent event{{"anna", "Anna"}, "text", std::nullopt};
  EXPECT_EQ(ErrorOf(rules.Admit("one", event)), "TooManyEvents");
  EXPECT_FALSE(rules.Knows("anna"));
}

std::string ErrorOfContact(const MessengerContact& contact) {
  const std::string error = ErrorOf(FeedRules::Message(contact, "text"));
  EXPECT_EQ(ErrorOf(FeedRules::State(contact, "away")), error);
  return error;
}

std::string NameOf(const MessengerContact& contact) {
  const auto event = FeedRules::Message(contact, "text");
  return std::get<FeedEvent>(event).contact.FriendlyName;
}

TEST(FeedEvents, HaveAContactThatAListCanKeep) {
  EXPECT_EQ(ErrorOfContact({"anna@x.example", "Anna"}), "");
  EXPECT_EQ(ErrorOfContact({std::string(FeedRules::kLongestName, 'x'), ""}), "");
  for (const std::string& id : {std::string(), std::string(" "), std::string("a\nb"),
                                std::string("a\r"), std::string("\x1B"), std::string("\xC2\x85"),
                                std::string(FeedRules::kLongestName + 1, 'x')}) {
    EXPECT_EQ(ErrorOfContact({id, "Anna"}), "InvalidContact") << id;
  }
  EXPECT_EQ(ErrorOfContact({"anna", "A\nB"}), "InvalidName");
  EXPECT_EQ(ErrorOfContact({"anna", std::string(FeedRules::kLongestName + 1, 'x')}), "InvalidName");
}

TEST(FeedEvents, ComeFromNobodyCalledLikeTheMailService) {
  EXPECT_EQ(NameOf({"anna", "HOTMAIL"}), "anna");
  EXPECT_EQ(ErrorOfContact({"Hotmail", ""}), "InvalidContact");
  EXPECT_EQ(ErrorOfContact({"hotmail", "HOTMAIL"}), "InvalidContact");
  EXPECT_EQ(ErrorOfContact({"hotmail", "Anna"}), "");
}

TEST(FeedEvents, ShowTheContactWhereItHasNoName) {
  EXPECT_EQ(NameOf({"anna", " "}), "anna");
  EXPECT_EQ(NameOf({"anna", "Anna Baker"}), "Anna Baker");
}

TEST(FeedEvents, HaveATextOfSomeLength) {
  const MessengerContact anna{"anna", "Anna"};
  EXPECT_EQ(ErrorOf(FeedRules::Message(anna, "")), "InvalidText");
  EXPECT_EQ(ErrorOf(FeedRules::Message(anna, std::string(FeedRules::kLongestText, 'x'))), "");
  EXPECT_EQ(ErrorOf(FeedRules::Message(anna, std::string(FeedRules::kLongestText + 1, 'x'))),
            "InvalidText");
}

TEST(FeedEvents, NameTheirStates) {
  const auto state = [](const std::string& name) {
    return std::get<FeedEvent>(FeedRules::State({"anna", "Anna"}, name)).state;
  };
  EXPECT_EQ(state("online"), MSTATE_ONLINE);
  EXPECT_EQ(state("idle"), MSTATE_IDLE);
  for (const char* name : {"Online", ""}) {
    const auto result = FeedRules::State({"anna", "Anna"}, name);
    ASSERT_TRUE(std::holds_alternative<FeedError>(result));
    EXPECT_EQ(std::get<FeedError>(result).name, "UnknownState");
    EXPECT_EQ(std::get<FeedError>(result).message,
              "the state is none of these: online, offline, busy, away, idle, be-right-back, "
              "on-the-phone, out-to-lunch, invisible");
  }
}

}  // namespace
}  // namespace brenwick

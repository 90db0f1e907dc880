#include "messenger/Conversations.h"

#include <gtest/gtest.h>

#include <functional>
#include <stdexcept>
#include <string>
#include <vector>

#include "unit/messenger/MessengerRoom.h"

namespace brenwick {
namespace {

class FakeMessenger : public MessengerClient {
 public:
  void Attach(MessengerListener& /*listener*/) override { ++attached; }
  void Detach() override { ++detached; }
  std::int32_t MyStatus() override { return MSTATE_ONLINE; }
  std::string MyName() override { return {}; }
  void InstantMessage(const std::string& contact) override {
    conversations.push_back(contact);
    if (WhenAsked) WhenAsked();
  }

  int attached = 0;
  int detached = 0;
  std::vector<std::string> conversations;
  std::function<void()> WhenAsked;
};

class ConversationsTest : public testing::Test {
 protected:
  void ExpectReport(const std::string& failure) {
    EXPECT_THROW(conversations.OpenConversation("ann@x"), ProgramEnd);
    ASSERT_EQ(world.screen.boxes.size(), 1U);
    EXPECT_EQ(world.screen.boxes[0].text, MessengerRoom::Report(failure, "OpenConversation"));
  }

  FakeWorld world;
  FakeMessenger messenger;
  Conversations conversations{world.log, messenger};
};

TEST_F(ConversationsTest, AskTheClientForOneWithTheContact) {
  conversations.OpenConversation(" Ann.Lee@x");
  EXPECT_EQ(messenger.conversations, (std::vector<std::string>{" Ann.Lee@x"}));
  EXPECT_EQ(messenger.attached + messenger.detached, 0);
  EXPECT_EQ(world.loop.rounds, 0);
  EXPECT_TRUE(world.screen.boxes.empty());
}

TEST_F(ConversationsTest, ReportAClientThatCannotBeAsked) {
  messenger.WhenAsked = [] { throw Failure(kInvalidCall); };
  ExpectReport("Error (5) : Invalid procedure call or argument");
}

TEST_F(ConversationsTest, ReportWhateverTheClientThrows) {
  messenger.WhenAsked = [] { throw std::runtime_error("gone"); };
  ExpectReport("Error (5) : gone");
}

}  // namespace
}  // namespace brenwick

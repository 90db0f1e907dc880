#include "messenger/MessengerEvents.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "unit/messenger/MessengerRoom.h"

namespace brenwick {
namespace {

class MessengerEventsTest : public testing::Test, protected MessengerRoom {
 protected:
  MessengerEventsTest() {
    world.folders.Touched = [this](const std::string& how, const std::string& path) {
      touched.push_back(how + " " + path);
    };
  }

  std::vector<std::string> touched;
};

TEST_F(MessengerEventsTest, OnlyTracesOtherEvents) {
  form.SetCaption("caption");
  contacts.ListAdd("ann@x", "Ann", 10);
  events.OnOtherEvent("OnUserJoin");
  EXPECT_EQ(touched, std::vector<std::string>{});
  EXPECT_EQ(voice.spoken, std::vector<std::string>{});
  EXPECT_EQ(world.screen.boxes.size() + world.screen.pointers.size(), 0U);
  EXPECT_EQ(world.loop.rounds, 0);
  EXPECT_EQ(form.lstMessages.ListCount(), 0);
  EXPECT_EQ(form.Caption(), "caption");
  EXPECT_TRUE(world.state.MessengerOnline);
  ASSERT_EQ(contacts.Records().size(), 1U);
  EXPECT_EQ(contacts.GetContactValue("ann@x", "N"), "Ann");
}

// So that the test above can see what an event does.
TEST_F(MessengerEventsTest, HandsOnWhatIsHandled) {
  events.OnUserStateChanged({"ann@x", "ann"}, MSTATE_ONLINE);
  EXPECT_EQ(voice.spoken, (std::vector<std::string>{"ann is online."}));
  EXPECT_FALSE(touched.empty());
  EXPECT_FALSE(world.screen.pointers.empty());
}

}  // namespace
}  // namespace brenwick

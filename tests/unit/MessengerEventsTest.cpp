#include "messenger/MessengerEvents.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "unit/MessengerRoom.h"

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

using Traced = void (MessengerListener::*)();

constexpr Traced kTraced[] = {
    &MessengerListener::OnAppInviteAccepted,
    &MessengerListener::OnAppShutdown,
    &MessengerListener::OnBuddyPropertyChangeResult,
    &MessengerListener::OnFindResult,
    &MessengerListener::OnListAddResult,
    &MessengerListener::OnLogoff,
    &MessengerListener::OnLogonResult,
    &MessengerListener::OnMessagePrivacyChangeResult,
    &MessengerListener::OnTrustChanged,
    &MessengerListener::OnUnreadEmailChanged,
    &MessengerListener::OnUserDropped,
    &MessengerListener::OnUserFriendlyNameChangeResult,
    &MessengerListener::OnUserJoin,
    &MessengerListener::OnUserLeave,
    &MessengerListener::OnNewSessionRequest,
    &MessengerListener::OnNotificationReceived,
    &MessengerListener::OnPrimaryServiceChanged,
    &MessengerListener::OnPromptChangeResult,
    &MessengerListener::OnRequestURLPostResult,
    &MessengerListener::OnRequestURLResult,
    &MessengerListener::OnSendResult,
    &MessengerListener::OnServiceLogoff,
    &MessengerListener::OnSessionStateChange,
    &MessengerListener::OnSPMessageReceived,
};

TEST_F(MessengerEventsTest, OnlyTracesTheOtherEvents) {
  form.SetCaption("caption");
  contacts.ListAdd("ann@x", "Ann", 10);
  for (const Traced event : kTraced) (events.*event)();
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

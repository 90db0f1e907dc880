#include "messenger/ContactStates.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "unit/messenger/MessengerRoom.h"

namespace brenwick {
namespace {

constexpr const char* kProcedure = "oMessenger_OnLocalStateChangeResult";

class ContactStatesTest : public testing::Test, protected MessengerRoom {};

TEST_F(ContactStatesTest, ReportATitleThatCannotBeShown) {
  bool went_on = false;
  states.ShowTitle = [](const std::string&) { throw Failure(kOverflow); };
  states.AfterOwnState = [&] { went_on = true; };
  EXPECT_THROW(states.oMessenger_OnLocalStateChangeResult(MSTATE_ONLINE), ProgramEnd);
  ASSERT_EQ(world.screen.boxes.size(), 1U);
  EXPECT_EQ(world.screen.boxes[0].text, Report("Error (6) : Overflow", kProcedure));
  EXPECT_EQ(voice.spoken, std::vector<std::string>{});
  EXPECT_FALSE(went_on);
}

TEST_F(ContactStatesTest, ReportWhatFollowsTheOwnState) {
  states.AfterOwnState = [] { throw Failure(kOverflow); };
  EXPECT_THROW(states.oMessenger_OnLocalStateChangeResult(MSTATE_ONLINE), ProgramEnd);
  ASSERT_EQ(world.screen.boxes.size(), 1U);
  EXPECT_EQ(world.screen.boxes[0].text, Report("Error (6) : Overflow", kProcedure));
  EXPECT_EQ(voice.spoken, (std::vector<std::string>{"text 56"}));
}

}  // namespace
}  // namespace brenwick

#include "messenger/Invitations.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "unit/messenger/MessengerRoom.h"

namespace brenwick {
namespace {

constexpr const char* kProcedure = "oMessenger_OnNewerClientAvailable";

class InvitationsTest : public testing::Test, protected MessengerRoom {
 protected:
  InvitationsTest() { values.CheckNewVersionsMessenger = true; }
};

TEST_F(InvitationsTest, TakeTheStatusWindowAwayBeforeTheOffer) {
  world.status.StatusForm(true, "busy");
  bool shown = true;
  world.screen.WhileBoxShows = [&] { shown = world.status.Form().Visible(); };
  invitations.oMessenger_OnNewerClientAvailable("a");
  EXPECT_EQ(world.screen.boxes.size(), 1U);
  EXPECT_FALSE(shown);
}

TEST_F(InvitationsTest, ReportAnOfferThatCannotBeMade) {
  world.screen.answer = BoxAnswer::Yes;
  world.screen.WhileBoxShows = [this] {
    world.screen.WhileBoxShows = nullptr;
    throw Failure(kOverflow);
  };
  EXPECT_THROW(invitations.oMessenger_OnNewerClientAvailable("a"), ProgramEnd);
  ASSERT_EQ(world.screen.boxes.size(), 2U);
  EXPECT_EQ(world.screen.boxes[1].text, Report("Error (6) : Overflow", kProcedure));
  EXPECT_EQ(voice.spoken, (std::vector<std::string>{"text 106"}));
  EXPECT_EQ(world.screen.opened, std::vector<std::string>{});
}

class ScreenWithoutBrowser : public FakeScreen {
 public:
  void Open(const std::string& /*address*/) override { throw Failure(kFileNotFound); }
};

TEST_F(InvitationsTest, ReportAnAddressThatCannotBeOpened) {
  ScreenWithoutBrowser screen;
  screen.answer = BoxAnswer::Yes;
  Invitations offering(world.log, values, texts, contacts, name, speech, world.status, screen);
  EXPECT_THROW(offering.oMessenger_OnNewerClientAvailable("a"), ProgramEnd);
  EXPECT_EQ(screen.boxes.size(), 1U);
  ASSERT_EQ(world.screen.boxes.size(), 1U);
  EXPECT_EQ(world.screen.boxes[0].text, Report("Error (53) : File not found", kProcedure));
}

}  // namespace
}  // namespace brenwick

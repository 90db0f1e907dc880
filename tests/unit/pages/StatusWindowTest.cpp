#include "pages/StatusWindow.h"

#include <gtest/gtest.h>

#include <vector>

#include "support/Fakes.h"

namespace brenwick {
namespace {

class StatusWindowTest : public testing::Test {
 protected:
  FakeWorld world;
  StatusWindow& status = world.status;
};

TEST_F(StatusWindowTest, ShowsTheTextInFrontOfEverything) {
  status.StatusForm(true, "Reading");
  EXPECT_TRUE(status.Form().Visible());
  EXPECT_TRUE(status.Form().Topmost());
  EXPECT_EQ(status.Form().lblStatus.Caption(), "Reading");
}

TEST_F(StatusWindowTest, IsNotTopmostForDevelopers) {
  world.system.development = true;
  status.StatusForm(true, "Reading");
  EXPECT_TRUE(status.Form().Visible());
  EXPECT_FALSE(status.Form().Topmost());
}

TEST_F(StatusWindowTest, CannotBeClosedByTheUser) {
  status.StatusForm(true, "Reading");
  EXPECT_FALSE(status.Form().CloseBox());
}

TEST_F(StatusWindowTest, PaintsWhileThePointerIsBusy) {
  world.loop.Pending = [this] {
    EXPECT_TRUE(status.Form().Visible());
    EXPECT_EQ(status.Form().lblStatus.Caption(), "Reading");
    EXPECT_EQ(world.screen.LastPointer(), Pointer::Hourglass);
  };
  status.StatusForm(true, "Reading");
  EXPECT_EQ(world.loop.rounds, 1);
  EXPECT_EQ(world.screen.LastPointer(), Pointer::Default);
}

TEST_F(StatusWindowTest, GoesWithoutHandlingEvents) {
  status.StatusForm(true, "Reading");
  world.screen.pointers.clear();
  status.StatusForm(false);
  EXPECT_FALSE(status.Form().Visible());
  EXPECT_EQ(world.loop.rounds, 1);
  EXPECT_EQ(world.screen.pointers, (std::vector<Pointer>{Pointer::Hourglass, Pointer::Default}));
}

TEST_F(StatusWindowTest, MayBeHiddenTwice) {
  status.StatusForm(false);
  status.StatusForm(false);
  EXPECT_FALSE(status.Form().Visible());
}

TEST_F(StatusWindowTest, LeavesAPointerBusyThatWasBusyBefore) {
  world.pointer.SetHourglass(true);
  status.StatusForm(true, "Reading");
  EXPECT_EQ(world.screen.LastPointer(), Pointer::Hourglass);
  status.StatusForm(false);
  EXPECT_EQ(world.screen.LastPointer(), Pointer::Hourglass);
  world.pointer.SetHourglass(false);
  EXPECT_EQ(world.screen.LastPointer(), Pointer::Default);
}

TEST_F(StatusWindowTest, TakesATextWithoutShowing) {
  status.SetText("Reading");
  EXPECT_EQ(status.Form().lblStatus.Caption(), "Reading");
  EXPECT_FALSE(status.Form().Visible());
  EXPECT_EQ(world.loop.rounds, 0);
}

TEST_F(StatusWindowTest, ChangesItsTextWhileItShows) {
  status.StatusForm(true, "Reading");
  status.SetText("Still reading");
  EXPECT_EQ(status.Form().lblStatus.Caption(), "Still reading");
  EXPECT_TRUE(status.Form().Visible());
}

}  // namespace
}  // namespace brenwick

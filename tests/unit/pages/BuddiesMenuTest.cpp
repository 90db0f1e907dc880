#include "pages/BuddiesMenu.h"

#include <gtest/gtest.h>

#include <set>
#include <string>
#include <vector>

#include "pages/SettingsBinding.h"
#include "support/Fakes.h"

namespace brenwick {
namespace {

class BuddiesMenuTest : public testing::Test {
 protected:
  BuddiesMenuTest() {
    texts.Replace(NumberedTexts());
    list.Replace(
        {{"ann@x", "Ann", "", "F", "", "10", ""}, {"bob@x", "Bob", "", "M", "", "11", ""}});
  }
  const MenuItem& Item(int index) { return form.mnuBuddiesOnLine[index]; }

  FakeWorld world;
  frmMain form;
  SettingsValues settings;
  SettingsBinding binding{form, settings};
  TextTable texts{world.log};
  ContactList list{world.log, settings, texts};
  std::vector<std::string> opened;
  BuddiesMenu menu{world.log, form, world.screen, list,
                   [this](const std::string& email) { opened.push_back(email); }};
};

TEST_F(BuddiesMenuTest, MarksFollowTheStateFromWhateverItWas) {
  const std::set<int> reachable = {0, 1, 7, 8, 10, 12, 13};
  for (const char* before : {"10", "11"}) {
    for (int code = 0; code <= 14; ++code) {
      list.SetStatus(0, before);
      menu.ShowBuddies();
      list.SetStatus(0, std::to_string(code));
      menu.ShowBuddies();
      EXPECT_EQ(Item(0).Enabled(), reachable.contains(code)) << before << " to " << code;
      EXPECT_EQ(Item(0).Checked(), code == 10) << before << " to " << code;
    }
  }
}

// No event brings such a state, but a file may hold any.
TEST_F(BuddiesMenuTest, StateThatMeansNothingLeavesTheMarks) {
  menu.ShowBuddies();
  list.SetAllStatus("15");
  menu.ShowBuddies();
  EXPECT_EQ(Item(0).Caption(), "Ann Error: text 9  (ann@x)");
  EXPECT_TRUE(Item(0).Enabled());
  EXPECT_TRUE(Item(0).Checked());
  EXPECT_FALSE(Item(1).Enabled());
  EXPECT_FALSE(Item(1).Checked());
}

TEST_F(BuddiesMenuTest, ItemThatWasHiddenComesBack) {
  menu.ShowBuddies();
  form.mnuBuddiesOnLine[1].SetVisible(false);
  menu.ShowBuddies();
  EXPECT_TRUE(Item(1).Visible());
}

TEST_F(BuddiesMenuTest, MakesOneItemAContactAndNoMore) {
  menu.ShowBuddies();
  menu.ShowBuddies();
  EXPECT_EQ(form.mnuBuddiesOnLine.Count(), 2);
}

TEST_F(BuddiesMenuTest, OpensNoConversationBeforeTheMenuWasShown) {
  form.mnuBuddiesOnLine[0].UserClick();
  EXPECT_TRUE(opened.empty());
  EXPECT_EQ(world.screen.beeps, 1);
}

TEST_F(BuddiesMenuTest, FailureIsReportedAndEndsTheMenu) {
  const Subscription failing = form.mnuBuddiesOnLine[0].Changed.Observe([this] {
    if (Item(0).Caption() != "OffLine") throw Failure(kInvalidCall);
  });
  EXPECT_THROW(menu.ShowBuddies(), ProgramEnd);
  ASSERT_EQ(world.screen.boxes.size(), 1U);
  EXPECT_EQ(world.screen.boxes[0].text,
            "Error (5) : Invalid procedure call or argument\r\n\r\nModule: frmMain\r\n"
            "Procedure: ShowBuddies\r\n\r\n");
  EXPECT_EQ(form.mnuBuddiesOnLine.Count(), 1);
}

}  // namespace
}  // namespace brenwick

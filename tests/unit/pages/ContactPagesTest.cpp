#include "pages/ContactPages.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "pages/SettingsBinding.h"
#include "support/Fakes.h"

namespace brenwick {
namespace {

using Lines = std::vector<std::string>;

TEST(GetEmailFromString, TakesTheLastPartInParentheses) {
  EXPECT_EQ(GetEmailFromString("Ann\tF\t\t(ann@x)\t"), "ann@x");
  EXPECT_EQ(GetEmailFromString("Ann (work)\tF\t\t(ann@x)\t"), "ann@x");
  EXPECT_EQ(GetEmailFromString("(one)(two)"), "two");
}

TEST(GetEmailFromString, StartsAgainAtEachClosingParenthesis) {
  EXPECT_EQ(GetEmailFromString("(a)b)"), "ab");
  EXPECT_EQ(GetEmailFromString("()"), "");
}

TEST(GetEmailFromString, WithoutAnOpeningOneGoesBackToTheStart) {
  EXPECT_EQ(GetEmailFromString("x)"), "x");
  EXPECT_EQ(GetEmailFromString("Ann x) y"), "Ann x");
}

TEST(GetEmailFromString, WithoutAClosingOneIsEmpty) {
  EXPECT_EQ(GetEmailFromString(""), "");
  EXPECT_EQ(GetEmailFromString("ann@x"), "");
  EXPECT_EQ(GetEmailFromString("(ann@x"), "");
}

TEST(GetEmailFromString, KeepsCharactersBeyondAscii) {
  EXPECT_EQ(GetEmailFromString("Zoë\t(zoë@x)\t"), "zoë@x");
}

class ContactPagesTest : public testing::Test {
 protected:
  ContactPagesTest() {
    texts.Replace(NumberedTexts());
    for (Frame& page : form.fraPage) page.SetVisible(false);
    list.Replace({{"ann@x", "Ann", "Annie", "F", "True", "10", "True"},
                  {"", "Free", "", "", "", "", ""},
                  {"bob@x", "Bob", "", "?", "", "12", ""}});
  }
  void Show(int page) { form.fraPage.at(static_cast<std::size_t>(page)).SetVisible(true); }

  FakeWorld world;
  frmMain form;
  SettingsValues settings;
  SettingsBinding binding{form, settings};
  TextTable texts{world.log};
  ContactList list{world.log, settings, texts};
  ContactPages pages{world.log, form, world.screen, list};
};

TEST_F(ContactPagesTest, FillsTheListThatIsAskedFor) {
  pages.FillContactList("G", 0);
  EXPECT_EQ(form.lstGender.Items(),
            (Lines{"Ann\ttext 117\t\t(ann@x)\t", "Bob\ttext 117\t\t(bob@x)\t"}));
  EXPECT_TRUE(form.lstIgnore.Items().empty());
  EXPECT_TRUE(form.lstBuddyNames.Items().empty());
}

TEST_F(ContactPagesTest, FillsAllLists) {
  pages.FillContactList("X", 0);
  EXPECT_EQ(form.lstGender.ListCount(), 2);
  EXPECT_EQ(form.lstIgnore.Items(),
            (Lines{"Ann\ttext 167\t\t(ann@x)\t", "Bob\ttext 168\t\t(bob@x)\t"}));
  EXPECT_EQ(form.lstBuddyNames.Items(), (Lines{"Ann\tAnnie\t\t(ann@x)\t", "Bob\t\t\t(bob@x)\t"}));
}

TEST_F(ContactPagesTest, UnsetGenderShowsTheDefaultVoice) {
  form.optMale.Choose();
  pages.FillContactList("G", 0);
  EXPECT_EQ(form.lstGender.List(1), "Bob\ttext 116\t\t(bob@x)\t");
}

TEST_F(ContactPagesTest, AddsOneLineAndRemembersItsPlace) {
  form.lstGender.AddItem("Zoe");
  form.lstGender.AddItem("Al");
  pages.FillContactList("G", 3);
  EXPECT_EQ(form.lstGender.Items(), (Lines{"Al", "Bob\ttext 117\t\t(bob@x)\t", "Zoe"}));
  EXPECT_EQ(pages.NewListLine, 1);
}

TEST_F(ContactPagesTest, AddsNoLineForAFreePlace) {
  pages.NewListLine = 7;
  pages.FillContactList("G", 2);
  EXPECT_TRUE(form.lstGender.Items().empty());
  EXPECT_EQ(pages.NewListLine, 7);
}

// Each character is 6 pixels wide; a cell is its text and two characters, in units of which four
// make a character.
TEST_F(ContactPagesTest, PlacesTheColumnsBehindTheWidestCells) {
  list.Replace({{"a@x", "Anna", "", "F", "", "10", ""}, {"bob@x", "B", "", "M", "", "10", ""}});
  pages.FillContactList("G", 0);
  EXPECT_EQ(form.lstGender.TabStops(),
            (std::vector<int>{(4 + 2) * 4, (4 + 2 + 8 + 2) * 4, (4 + 2 + 8 + 2 + 2) * 4,
                              (4 + 2 + 8 + 2 + 2 + 7 + 2) * 4}));
  EXPECT_EQ(form.lstGender.HorizontalExtent(), 27 * 6);
}

TEST_F(ContactPagesTest, OneLineLeavesTheColumns) {
  pages.FillContactList("G", 0);
  const std::vector<int> stops = form.lstGender.TabStops();
  list.ListMod("N", "bob@x", "Bob with a very long name");
  pages.FillContactList("G", 3);
  EXPECT_EQ(form.lstGender.TabStops(), stops);
}

TEST_F(ContactPagesTest, NewsRefreshTheGenderOrTheIgnorePage) {
  Show(kGenderPage);
  list.ListAdd("bob@x", "Robert", 10);
  EXPECT_EQ(form.lstGender.ListCount(), 2);
  EXPECT_EQ(form.lstIgnore.ListCount(), 0);
  form.fraPage[kGenderPage].SetVisible(false);
  Show(kIgnorePage);
  list.ListAdd("bob@x", "Robert", 10);
  EXPECT_EQ(form.lstIgnore.ListCount(), 2);
}

TEST_F(ContactPagesTest, NewsLeaveTheBuddynamesPage) {
  Show(kBuddyNamesPage);
  list.ListAdd("bob@x", "Robert", 10);
  EXPECT_EQ(form.lstBuddyNames.ListCount(), 0);
}

TEST_F(ContactPagesTest, ChangeReplacesTheOpenedLine) {
  Show(kGenderPage);
  pages.FillContactList("G", 0);
  pages.SelectedListLine = 1;
  list.ListMod("G", "bob@x", "M");
  EXPECT_EQ(form.lstGender.Items(),
            (Lines{"Ann\ttext 117\t\t(ann@x)\t", "Bob\ttext 116\t\t(bob@x)\t"}));
}

TEST_F(ContactPagesTest, ChangeOfAnUnknownContactBuildsTheListAnew) {
  Show(kBuddyNamesPage);
  list.ListMod("N", "cy@x", "Cy");
  EXPECT_EQ(form.lstBuddyNames.ListCount(), 2);
}

TEST_F(ContactPagesTest, ChangeTouchesNoOtherPage) {
  Show(kTextPage);
  list.ListMod("N", "bob@x", "Robert");
  EXPECT_EQ(
      form.lstGender.ListCount() + form.lstIgnore.ListCount() + form.lstBuddyNames.ListCount(), 0);
}

}  // namespace
}  // namespace brenwick

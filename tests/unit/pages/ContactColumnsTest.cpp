// The columns of the contact lists, and which lines a change touches.
#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "pages/ContactPages.h"
#include "pages/SettingsBinding.h"
#include "support/Fakes.h"

namespace brenwick {
namespace {

// A screen on which a character takes a number of twips that is no whole number of pixels.
class WideScreen : public FakeScreen {
 public:
  float TextWidth(const std::string& text, const Font& font) override {
    measured.push_back(text);
    fonts.push_back(font);
    return static_cast<float>(text.size()) * twips;
  }
  float twips = 90;
  std::vector<std::string> measured;
  std::vector<Font> fonts;
};

class ContactColumnsTest : public testing::Test {
 protected:
  ContactColumnsTest() {
    texts.Replace(NumberedTexts());
    for (Frame& page : form.fraPage) page.SetVisible(false);
    list.Replace({{"a@x", "Anna", "", "F", "", "10", ""}, {"bob@x", "B", "", "M", "", "10", ""}});
  }
  std::vector<int> Stops(float twips) {
    screen.twips = twips;
    pages.FillContactList("G", 0);
    return form.lstGender.TabStops();
  }
  FakeWorld world;
  WideScreen screen;
  frmMain form;
  SettingsValues settings;
  SettingsBinding binding{form, settings};
  TextTable texts{world.log};
  ContactList list{world.log, settings, texts};
  ContactPages pages{world.log, form, screen, list};
};

TEST_F(ContactColumnsTest, RoundsHalvesToEven) {
  EXPECT_EQ(Stops(97.5F),
            (std::vector<int>{24, 64, 72, 108}));     // 6.5 pixels a character count as 6
  EXPECT_EQ(form.lstGender.HorizontalExtent(), 176);  // 175.5
  EXPECT_EQ(Stops(112.5F), (std::vector<int>{20, 56, 60, 92}));   // 7.5 as 8
  EXPECT_EQ(form.lstGender.HorizontalExtent(), 172);              // 172.5
  EXPECT_EQ(Stops(101.25F), (std::vector<int>{20, 56, 64, 96}));  // the padding: 13.5 as 14
  EXPECT_EQ(form.lstGender.HorizontalExtent(), 162);
}

TEST_F(ContactColumnsTest, MeasuresTheAlphabetInBothCases) {
  pages.FillContactList("A", 0);
  EXPECT_EQ(screen.measured.front(), "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ");
}

TEST_F(ContactColumnsTest, MeasuresInTheFontOfTheGenderListAndPutsTheWindowsBack) {
  Font mine = form.TextFont();
  mine.size = 33;
  form.SetTextFont(mine);
  pages.FillContactList("I", 0);
  for (const Font& font : screen.fonts) EXPECT_TRUE(font == form.lstGender.TextFont());
  EXPECT_TRUE(form.TextFont() == mine);
}

TEST_F(ContactColumnsTest, ColumnsBecomeNarrowAgain) {
  const std::vector<int> narrow = Stops(90);
  list.ListMod("N", "a@x", "Anna with a very long name");
  EXPECT_NE(Stops(90), narrow);
  list.ListMod("N", "a@x", "Anna");
  EXPECT_EQ(Stops(90), narrow);
}

TEST_F(ContactColumnsTest, OnlyASingleLineIsRemembered) {
  pages.NewListLine = 7;
  pages.FillContactList("X", 0);
  EXPECT_EQ(pages.NewListLine, 7);
}

TEST_F(ContactColumnsTest, ChangeRemovesTheOpenedLineWhoseverItIs) {
  const std::pair<int, ListBox*> shown[] = {{kGenderPage, &form.lstGender},
                                            {kIgnorePage, &form.lstIgnore},
                                            {kBuddyNamesPage, &form.lstBuddyNames}};
  for (const auto& [page, box] : shown) {
    form.fraPage[static_cast<std::size_t>(page)].SetVisible(true);
    pages.FillContactList("X", 0);
    pages.SelectedListLine = 0;
    list.ListMod("S", "bob@x", "12");
    ASSERT_EQ(box->ListCount(), 2);
    EXPECT_TRUE(box->List(0).ends_with("(bob@x)\t") && box->List(1).ends_with("(bob@x)\t")) << page;
    list.ListMod("S", "nobody@x", "12");  // builds the whole list
    EXPECT_TRUE(box->List(0).ends_with("(a@x)\t")) << page;
    form.fraPage[static_cast<std::size_t>(page)].SetVisible(false);
  }
}

TEST_F(ContactColumnsTest, FailureOfAChangeIsReportedByIt) {
  list.AfterMod = [](int) { throw Failure(kSubscript); };
  EXPECT_THROW(list.ListMod("N", "a@x", "x"), ProgramEnd);
  EXPECT_EQ(world.screen.boxes.at(0).text,
            "Error (9) : Subscript out of range\r\n\r\nModule: ModFunctions\r\nProcedure: "
            "ListMod\r\n\r\n");
}

TEST_F(ContactColumnsTest, FailureOfTheListIsReportedByIt) {
  form.fraPage[kGenderPage].SetVisible(true);
  screen.twips = 1e6F;
  EXPECT_THROW(list.ListAdd("a@x", "A", 10), ProgramEnd);
  EXPECT_EQ(
      world.screen.boxes.at(0).text,
      "Error (6) : Overflow\r\n\r\nModule: ModFunctions\r\nProcedure: FillContactList\r\n\r\n");
}

}  // namespace
}  // namespace brenwick

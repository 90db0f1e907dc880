#include "pages/TypeAhead.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/Fakes.h"

namespace brenwick {
namespace {

using Texts = std::vector<std::string>;

class TypeAheadTest : public testing::Test {
 protected:
  TypeAheadTest() {
    for (const char* entry : {"Microsoft Mary", "Microsoft Mike", "Ñandú", "v1.2"}) {
      combo.AddItem(entry);
    }
    other.AddItem("Microsoft Sam");
  }

  // Types as a user does; keys that the program sends arrive behind each of his.
  void Type(std::u32string_view text) {
    for (const char32_t character : text) {
      combo.UserTypesCharacter(character);
      for (; delivered < world.screen.sent_keys.size(); ++delivered) {
        combo.UserTypesCharacter(kKeyBackspace);
      }
    }
  }
  std::string Selected() const {
    return std::to_string(combo.SelStart()) + "+" + std::to_string(combo.SelLength());
  }

  FakeWorld world;
  Window window;
  ComboBox combo{Place{window, kNoPage}, "cmb"};
  ComboBox other{Place{window, kNoPage}, "cmbOther"};
  TypeAhead type_ahead{world.log, world.screen, {&combo, &other}};
  std::size_t delivered = 0;
};

TEST_F(TypeAheadTest, SelectsTheFirstEntryThatBeginsWithWhatIsTyped) {
  Type(U"Mi");
  EXPECT_EQ(combo.Text(), "Microsoft Mary");
  EXPECT_EQ(combo.ListIndex(), 0);
  EXPECT_EQ(Selected(), "2+12");
  EXPECT_EQ(world.screen.sent_keys, Texts{});
}

TEST_F(TypeAheadTest, FurtherTypingReplacesWhatWasCompleted) {
  Type(U"Microsoft Mi");
  EXPECT_EQ(combo.Text(), "Microsoft Mike");
  EXPECT_EQ(combo.ListIndex(), 1);
  EXPECT_EQ(Selected(), "12+2");
}

TEST_F(TypeAheadTest, DoesNotCareForCase) {
  Type(U"mICROSOFT mI");
  EXPECT_EQ(combo.Text(), "Microsoft Mike");
  combo.UserEmpties();
  Type(U"ñan");
  EXPECT_EQ(combo.Text(), "Ñandú");
  EXPECT_EQ(Selected(), "3+2");
}

TEST_F(TypeAheadTest, CaresForCaseWhenItIsAsked) {
  combo.SetText("mi");
  type_ahead.ComboTypeAhead(combo, true);
  EXPECT_EQ(combo.Text(), "mi");
  EXPECT_EQ(world.screen.sent_keys, (Texts{"{BACKSPACE}"}));
  combo.SetText("Mi");
  type_ahead.ComboTypeAhead(combo, true);
  EXPECT_EQ(combo.Text(), "Microsoft Mary");
  EXPECT_EQ(world.screen.sent_keys.size(), 1U);
}

TEST_F(TypeAheadTest, SelectsNothingOfAnEntryThatIsTypedWhole) {
  Type(U"ñandú");
  EXPECT_EQ(combo.Text(), "Ñandú");
  EXPECT_EQ(Selected(), "5+0");
  Type(U"\b");
  EXPECT_EQ(combo.Text(), "Ñand");
}

TEST_F(TypeAheadTest, TakesALetterBackThatFitsNoEntry) {
  Type(U"Mx");
  EXPECT_EQ(world.screen.sent_keys, (Texts{"{BACKSPACE}"}));
  EXPECT_EQ(combo.Text(), "M");
  Type(U"i");
  EXPECT_EQ(combo.Text(), "Microsoft Mary");
}

TEST_F(TypeAheadTest, TakesALetterBackThatGoesBeyondTheEntry) {
  Type(U"Ñandúx");
  EXPECT_EQ(world.screen.sent_keys, (Texts{"{BACKSPACE}"}));
  EXPECT_EQ(combo.Text(), "Ñandú");
}

TEST_F(TypeAheadTest, LeavesAnEmptyBoxAlone) {
  combo.SetListIndex(1);
  combo.SetText("");
  type_ahead.ComboTypeAhead(combo, false);
  EXPECT_EQ(combo.Text(), "");
  EXPECT_EQ(combo.ListIndex(), -1);
  EXPECT_EQ(world.screen.sent_keys, Texts{});
}

TEST_F(TypeAheadTest, BackspaceIsNotCompletedAgain) {
  Type(U"Mi");
  Type(U"\b");
  EXPECT_EQ(combo.Text(), "Mi");
  Type(U"\b");
  EXPECT_EQ(combo.Text(), "M");
  EXPECT_EQ(world.screen.sent_keys, Texts{});
}

TEST_F(TypeAheadTest, DeleteSendsABackspace) {
  combo.UserKeyDown(kKeyDelete);
  EXPECT_EQ(world.screen.sent_keys, (Texts{"{BACKSPACE}"}));
  combo.UserKeyDown(45);
  combo.UserKeyDown(kKeyBackspace);
  EXPECT_EQ(world.screen.sent_keys.size(), 1U);
}

TEST_F(TypeAheadTest, FullStopIsNoDelete) {
  Type(U"v1.");
  EXPECT_EQ(world.screen.sent_keys, Texts{});
  EXPECT_EQ(combo.Text(), "v1.2");
  EXPECT_EQ(Selected(), "3+1");
}

TEST_F(TypeAheadTest, LeavesATextThatNobodyTyped) {
  combo.SetText("Mi");
  EXPECT_EQ(combo.Text(), "Mi");
  combo.SetText("odd");
  EXPECT_EQ(world.screen.sent_keys, Texts{});
}

TEST_F(TypeAheadTest, ForgetsTheKeyWhenTheFocusGoes) {
  Type(U"Mi");
  combo.UserLeaves();
  combo.SetText("odd");
  EXPECT_EQ(combo.Text(), "odd");
  EXPECT_EQ(world.screen.sent_keys, Texts{});
}

TEST_F(TypeAheadTest, CompletesEachOfItsBoxesFromItsOwnEntries) {
  other.UserTypesCharacter(U'm');
  EXPECT_EQ(other.Text(), "Microsoft Sam");
  EXPECT_EQ(combo.Text(), "");
}

TEST_F(TypeAheadTest, CompletingAnEntryClicksIt) {
  int clicks = 0;
  combo.Click = [&] { ++clicks; };
  Type(U"M");
  EXPECT_EQ(clicks, 1);
}

}  // namespace
}  // namespace brenwick

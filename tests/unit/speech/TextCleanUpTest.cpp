#include "speech/TextCleanUp.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

#include "support/Fakes.h"

namespace brenwick {
namespace {

using Texts = std::vector<std::string>;

class TextCleanUpTest : public testing::Test {
 protected:
  std::string Split(const std::string& text) { return clean_up.ConvertUserCapitals(text); }
  std::string Shorten(const std::string& text) { return clean_up.RemoveRepeatedCharacters(text); }

  FakeWorld world;
  TextCleanUp clean_up{world.log};
};

TEST_F(TextCleanUpTest, SplitsRunTogetherWords) {
  EXPECT_EQ(Split("BigBlueSky"), " Big Blue Sky");
  EXPECT_EQ(Split("bigBlue"), "big Blue");
  EXPECT_EQ(Split("Anna"), " Anna");
  EXPECT_EQ(Split("anna"), "anna");
}

TEST_F(TextCleanUpTest, PutsNoSecondSpace) {
  EXPECT_EQ(Split("Big Blue"), " Big Blue");
  EXPECT_EQ(Split("Big  Blue"), " Big  Blue");
  EXPECT_EQ(Split("  BigBlue  "), " Big Blue");
}

TEST_F(TextCleanUpTest, SplitsEachOfSeveralCapitals) {
  EXPECT_EQ(Split("BBlue"), " B Blue");
  EXPECT_EQ(Split("annaBC"), "anna B C");
}

TEST_F(TextCleanUpTest, SplitsCapitalsOfEveryScript) {
  EXPECT_EQ(Split("ÉvaÅsa"), " Éva Åsa");
  EXPECT_EQ(Split("иванПетров"), "иван Петров");
  EXPECT_EQ(Split("x𐐀y"), "x 𐐀y");
  EXPECT_EQ(Split("straßeß"), "straßeß");
}

TEST_F(TextCleanUpTest, KeepsWhatIsNoCapital) {
  EXPECT_EQ(Split("anna1-Bert_2"), "anna1- Bert_2");
  EXPECT_EQ(Split("a\tB"), "a\t B");
}

TEST_F(TextCleanUpTest, LeavesATextThatIsItsOwnUpperCaseUntouched) {
  world.state.Debug = true;
  for (const char* text : {"ANNA", " ANNA BERT ", "", "2003", "   ", "ÉVA", "!?", "漢字"}) {
    EXPECT_EQ(Split(text), text);
  }
  EXPECT_EQ(world.DebugLines(), Texts{});
}

TEST_F(TextCleanUpTest, TellsTheLogWhatItSplits) {
  world.state.Debug = true;
  Split(" BigBlue ");
  EXPECT_EQ(world.DebugLines(), (Texts{"ConvertUserCapitals String in:  BigBlue ",
                                       "ConvertUserCapitals String out:  Big Blue"}));
}

TEST_F(TextCleanUpTest, ShortensRunsOfPunctuation) {
  EXPECT_EQ(Shorten("help!!!"), "help!");
  EXPECT_EQ(Shorten("...."), ".");
  EXPECT_EQ(Shorten("a--b"), "a-b");
  EXPECT_EQ(Shorten("what!!!???"), "what!?");
  EXPECT_EQ(Shorten("!?!?"), "!?!?");
}

TEST_F(TextCleanUpTest, ShortensEveryCharacterOfTheSet) {
  constexpr std::string_view kSet = "!@#$%^&*()_+-=~`{[}]|\\:;'<,>.?/";
  EXPECT_EQ(kSet.size(), 31U);
  for (const char character : kSet) {
    EXPECT_EQ(Shorten("a" + std::string(3, character) + "b"),
              "a" + std::string(1, character) + "b");
  }
}

TEST_F(TextCleanUpTest, LeavesAllOtherRuns) {
  for (const char* text :
       {"hello", "\"\"quoted\"\"", "1000", "a  b", "a\t\tb", "ññ", "¿¿¡¡", "😀😀", "——", "ÄÄ"}) {
    EXPECT_EQ(Shorten(text), text);
  }
}

TEST_F(TextCleanUpTest, TrimsWhatItShortens) {
  EXPECT_EQ(Shorten("help!!!   "), "help!");
  EXPECT_EQ(Shorten("  a b  "), "a b");
  EXPECT_EQ(Shorten("   "), "");
  EXPECT_EQ(Shorten(""), "");
  EXPECT_EQ(Shorten(". ."), ". .");
}

TEST_F(TextCleanUpTest, TellsTheLogWhatItShortens) {
  world.state.Debug = true;
  Shorten(" help!! ");
  EXPECT_EQ(world.DebugLines(), (Texts{"RemoveRepeatedCharacters String in:  help!! ",
                                       "RemoveRepeatedCharacters String out: help!"}));
}

}  // namespace
}  // namespace brenwick

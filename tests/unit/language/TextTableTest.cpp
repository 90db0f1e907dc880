#include "language/TextTable.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/Fakes.h"

namespace brenwick {
namespace {

class TextTableTest : public testing::Test {
 protected:
  void ExpectReport(std::int16_t id, const std::string& failure) {
    EXPECT_THROW(texts.LoadText(id), ProgramEnd);
    ASSERT_EQ(world.screen.boxes.size(), 1U);
    EXPECT_EQ(world.screen.boxes[0].text,
              failure + "\r\n\r\nModule: modFunctions\r\nProcedure: LoadText\r\n\r\n");
  }

  FakeWorld world;
  TextTable texts{world.log};
};

TEST_F(TextTableTest, HandsOutTextsByNumber) {
  texts.Replace({"", "one", " two ", "three", ""});
  EXPECT_EQ(texts.LoadText(1), "one");
  EXPECT_EQ(texts.LoadText(2), " two ");
  EXPECT_EQ(texts.LoadText(3), "three");
}

TEST_F(TextTableTest, HasNothingAtItsEnds) {
  texts.Replace({"", "one", ""});
  EXPECT_EQ(texts.LoadText(0), "");
  EXPECT_EQ(texts.LoadText(2), "");
  EXPECT_EQ(world.screen.boxes.size(), 0U);
}

TEST_F(TextTableTest, TellsWhetherItHasAText) {
  texts.Replace({"", "one", ""});
  EXPECT_TRUE(texts.Has(1));
  for (const std::int16_t id : std::initializer_list<std::int16_t>{-1, 0, 2, 3})
    EXPECT_FALSE(texts.Has(id)) << id;
}

TEST_F(TextTableTest, HelpsOutInEnglishWhereALanguageLacksALaterText) {
  texts.Replace({"", "eins", "", ""});
  EXPECT_EQ(texts.LoadText({1, "one"}), "eins");
  EXPECT_EQ(texts.LoadText({2, "two"}), "two");
  EXPECT_EQ(texts.LoadText({200, "two hundred"}), "two hundred");
  EXPECT_EQ(world.screen.boxes.size(), 0U);
}

TEST_F(TextTableTest, ReportsANumberBeyondIts) {
  world.state.Debug = true;
  texts.Replace({"", "one", ""});
  ExpectReport(3, "Error (65535) : Language string 3 is not found...");
  EXPECT_EQ(world.DebugLines(),
            (std::vector<std::string>{
                "ERROR in modFunctions, LoadText Line : 65535, Error : Language string 3 is not "
                "found..., Source: LoadText"}));
}

TEST_F(TextTableTest, ReportsTheLastNumberOfAll) {
  texts.Replace({"", "one", ""});
  ExpectReport(32767, "Error (65535) : Language string 32767 is not found...");
}

TEST_F(TextTableTest, ReportsANegativeNumber) {
  texts.Replace({"", "one", ""});
  ExpectReport(-1, "Error (9) : Subscript out of range");
}

TEST_F(TextTableTest, ReportsEveryNumberBeforeATableIsThere) {
  ExpectReport(0, "Error (9) : Subscript out of range");
}

TEST_F(TextTableTest, TakesTheNewTableWhole) {
  texts.Replace({"", "one", "two", ""});
  texts.Replace({"", "uno", ""});
  EXPECT_EQ(texts.LoadText(1), "uno");
  EXPECT_EQ(texts.LoadText(2), "");
  ExpectReport(3, "Error (65535) : Language string 3 is not found...");
}

TEST_F(TextTableTest, ReportsATextThatCannotBeFilledIn) {
  EXPECT_THROW(texts.GetText(" %a", "x"), ProgramEnd);
  ASSERT_EQ(world.screen.boxes.size(), 1U);
  EXPECT_EQ(world.screen.boxes[0].text,
            "Error (5) : Invalid procedure call or argument\r\n\r\nModule: modFunctions\r\n"
            "Procedure: GetText\r\n\r\n");
}

}  // namespace
}  // namespace brenwick

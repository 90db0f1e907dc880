#include "rehearsals/player/Comparison.h"

#include <gtest/gtest.h>

namespace brenwick {
namespace {

const std::string kStep1 = R"({"step":1})";
const std::string kStep2 = R"({"step":2})";
const std::string kA = R"({"beep":1})";
const std::string kB = R"({"beep":2})";
const std::string kC = R"({"beep":3})";
const std::string kDots = "...";

void Fits(const TextLines& expected, const TextLines& got) {
  EXPECT_EQ(Mismatch(expected, got), "");
}
void Differs(const TextLines& expected, const TextLines& got) {
  EXPECT_NE(Mismatch(expected, got), "");
}

TEST(Comparison, LikeLinesFit) {
  Fits({}, {});
  Fits({kStep1, kA, kStep2}, {kStep1, kA, kStep2});
}

TEST(Comparison, OtherLinesDiffer) {
  Differs({kStep1, kA}, {kStep1, kB});
  Differs({kStep1, kA}, {kStep1});
  Differs({kStep1}, {kStep1, kA});
  Differs({}, {kA});
  Differs({kA}, {});
  Differs({kA, kB}, {kB, kA});
}

TEST(Comparison, DotsStandForAnyLinesOfAStep) {
  for (const TextLines& hidden : {TextLines{}, {kA}, {kA, kB}, {kA, kA, kA}}) {
    TextLines got = {kStep1};
    got.insert(got.end(), hidden.begin(), hidden.end());
    Fits({kStep1, kDots}, got);
    got.push_back(kC);
    Fits({kStep1, kDots, kC}, got);
    got.insert(got.end() - 1, kStep2);
    Fits({kStep1, kDots, kStep2, kC}, got);
  }
}

TEST(Comparison, DotsHideNoLaterLine) {
  Differs({kStep1, kDots, kStep2, kA, kB}, {kStep1, kC, kStep2, kA});
  Differs({kStep1, kDots, kStep2, kA}, {kStep1, kC, kStep2, kA, kB});
  Differs({kStep1, kDots, kStep2}, {kStep1, kC});
  Differs({kStep1, kDots, kA, kB}, {kStep1, kC, kA});
}

TEST(Comparison, DotsEndAtTheFirstLineThatFits) {
  Differs({kStep1, kDots, kA, kB}, {kStep1, kA, kC, kA, kB});
}

TEST(Comparison, DotsEndWithTheirStep) {
  Differs({kStep1, kDots, kA}, {kStep1, kStep2, kA});
  Differs({kStep1, kDots}, {kStep1, kA, kStep2});
  Differs({kDots, kStep2}, {kStep1, kStep2});
}

TEST(Comparison, TellsThePlace) {
  EXPECT_EQ(Mismatch({kStep1, kA, kB}, {kStep1, kA, kC}),
            "line 3 of the expected transcript is\n  " + kB + "\nbut there was\n  " + kC);
  EXPECT_EQ(Mismatch({kA, kB}, {kA}),
            "line 2 of the expected transcript is\n  " + kB + "\nbut there was\n  the end");
}

TEST(Comparison, CollapsesWhatAStartDoes) {
  const std::string script = "# A comment.\n{\"world\":{}}\n\n  # Another.\n{\"start\":\"\"}\n";
  EXPECT_EQ(Collapsed(script, {kStep1, kA, kStep2, kB, kC}),
            TextLines({kStep1, kA, kStep2, kDots}));
}

TEST(Comparison, DividesLinesAtLineFeedsAlone) {
  EXPECT_EQ(SplitLines("a\fb\xE2\x80\xA8"
                       "c\r\n\nd"),
            TextLines({"a\fb\xE2\x80\xA8"
                       "c\r",
                       "", "d"}));
  EXPECT_EQ(SplitLines(""), TextLines());
}

TEST(Comparison, ShowsBothSidesOfADifferenceAndWhatIsNear) {
  EXPECT_EQ(Difference({"1", "2", "3", "4", "5", "6"}, {"1", "2", "3", "4", "x", "6"}),
            "  [...]\n 2\n 3\n 4\n-5\n+x\n 6\n");
  EXPECT_EQ(Difference({"1"}, {"1", "2"}), " 1\n+2\n");
  EXPECT_EQ(Difference({"1", "2"}, {"2"}), "-1\n 2\n");
}

constexpr const char* kLog =
    "2004-01-10 12:00:00 A : one\r\n2004-01-10 12:00:00 B : two\r\n2004-01-10 12:00:00 C : 3 4\r\n";

TEST(Comparison, FindsLinesThatStandTogetherInALog) {
  EXPECT_TRUE(LogHolds({"A : one", "B : two"}, kLog));
  EXPECT_TRUE(LogHolds({"B : two", "C : 3 4"}, kLog));
  EXPECT_TRUE(LogHolds({"C : 3 4", ""}, kLog));
}

TEST(Comparison, FindsNoOtherLinesInALog) {
  for (const TextLines& wrong : {TextLines{"A : one", "C : 3 4"},
                                 {"B : two", "A : one"},
                                 {"D : four"},
                                 {"one"},
                                 {"B : two", ""},
                                 {"C : 3 4", "D : four"}}) {
    EXPECT_FALSE(LogHolds(wrong, kLog)) << wrong.front();
  }
}

TEST(Comparison, ReplacesEachPlace) {
  EXPECT_EQ(Replaced("/t/a /t/b /u", "/t", "F"), "F/a F/b /u");
}

}  // namespace
}  // namespace brenwick

#include "base/Numbers.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>

#include "base/Failure.h"

namespace brenwick {
namespace {

template <typename Call>
void ExpectFailure(FailureNumber number, const Call& call) {
  try {
    call();
    ADD_FAILURE() << "no failure " << number;
  } catch (const Failure& failure) {
    EXPECT_EQ(failure.Number(), number);
  }
}

TEST(LeadingNumber, ReadsUpToWhatIsNoPartOfANumber) {
  EXPECT_EQ(LeadingNumber("12"), 12);
  EXPECT_EQ(LeadingNumber("12abc"), 12);
  EXPECT_EQ(LeadingNumber("7 days"), 7);
  EXPECT_EQ(LeadingNumber("1.25x"), 1.25);
  EXPECT_EQ(LeadingNumber("1.2.3"), 1.2);
  EXPECT_EQ(LeadingNumber("1,5"), 1);
  EXPECT_EQ(LeadingNumber("3-2"), 3);
  EXPECT_EQ(LeadingNumber("007"), 7);
}

TEST(LeadingNumber, TakesOneSign) {
  EXPECT_EQ(LeadingNumber("-12"), -12);
  EXPECT_EQ(LeadingNumber("+12"), 12);
  EXPECT_EQ(LeadingNumber("-1.5"), -1.5);
  EXPECT_EQ(LeadingNumber("--5"), 0);
  EXPECT_EQ(LeadingNumber("+-5"), 0);
  EXPECT_EQ(LeadingNumber("- 5"), 0);
}

TEST(LeadingNumber, NeedsADigitOnOneSideOfThePoint) {
  EXPECT_EQ(LeadingNumber(".5"), 0.5);
  EXPECT_EQ(LeadingNumber("-.5"), -0.5);
  EXPECT_EQ(LeadingNumber("5."), 5);
  EXPECT_EQ(LeadingNumber("."), 0);
  EXPECT_EQ(LeadingNumber("-."), 0);
  EXPECT_EQ(LeadingNumber("-"), 0);
  EXPECT_EQ(LeadingNumber("+"), 0);
}

TEST(LeadingNumber, KnowsNoOtherNotation) {
  EXPECT_EQ(LeadingNumber("1e5"), 1);
  EXPECT_EQ(LeadingNumber("2E-3"), 2);
  EXPECT_EQ(LeadingNumber("0x10"), 0);
  EXPECT_EQ(LeadingNumber("inf"), 0);
  EXPECT_EQ(LeadingNumber("nan"), 0);
  EXPECT_EQ(LeadingNumber("٣"), 0);
}

TEST(LeadingNumber, IsZeroWithoutANumberInFront) {
  EXPECT_EQ(LeadingNumber(""), 0);
  EXPECT_EQ(LeadingNumber("   "), 0);
  EXPECT_EQ(LeadingNumber("abc"), 0);
  EXPECT_EQ(LeadingNumber("a1"), 0);
}

TEST(LeadingNumber, PassesOverSpacesAlone) {
  EXPECT_EQ(LeadingNumber("   7"), 7);
  EXPECT_EQ(LeadingNumber("  -7 "), -7);
  EXPECT_EQ(LeadingNumber("\t7"), 0);
}

TEST(LeadingNumber, TakesAnyNumberOfDigits) {
  EXPECT_EQ(LeadingNumber("0." + std::string(400, '3')), 1.0 / 3);
  EXPECT_EQ(LeadingNumber(std::string(400, '0') + "12"), 12);
  EXPECT_EQ(LeadingNumber(std::string(400, '9')), std::numeric_limits<double>::infinity());
  EXPECT_EQ(LeadingNumber("-" + std::string(400, '9')), -std::numeric_limits<double>::infinity());
}

TEST(LeadingNumber, OfNextToNothingIsNothing) {
  EXPECT_EQ(LeadingNumber("0." + std::string(400, '0') + "1"), 0);
  EXPECT_EQ(LeadingNumber("-0." + std::string(400, '0') + "1"), 0);
}

TEST(ToInteger16, RoundsHalvesToTheEvenNeighbour) {
  EXPECT_EQ(ToInteger16(0.5), 0);
  EXPECT_EQ(ToInteger16(1.5), 2);
  EXPECT_EQ(ToInteger16(2.5), 2);
  EXPECT_EQ(ToInteger16(3.5), 4);
  EXPECT_EQ(ToInteger16(-0.5), 0);
  EXPECT_EQ(ToInteger16(-1.5), -2);
  EXPECT_EQ(ToInteger16(-2.5), -2);
}

TEST(ToInteger16, RoundsTheRestToTheNearest) {
  EXPECT_EQ(ToInteger16(2.4999), 2);
  EXPECT_EQ(ToInteger16(2.5001), 3);
  EXPECT_EQ(ToInteger16(-2.5001), -3);
  EXPECT_EQ(ToInteger16(7), 7);
}

TEST(ToInteger16, FailsOutsideTheRange) {
  EXPECT_EQ(ToInteger16(32767.4), 32767);
  EXPECT_EQ(ToInteger16(-32768.5), -32768);
  ExpectFailure(kOverflow, [] { ToInteger16(32767.5); });
  ExpectFailure(kOverflow, [] { ToInteger16(-32768.6); });
  ExpectFailure(kOverflow, [] { ToInteger16(std::numeric_limits<double>::infinity()); });
  ExpectFailure(kOverflow, [] { ToInteger16(-std::numeric_limits<double>::infinity()); });
  ExpectFailure(kOverflow, [] { ToInteger16(std::nan("")); });
}

TEST(LeadingInteger16, ReadsAndRounds) {
  EXPECT_EQ(LeadingInteger16(" 2.5 words"), 2);
  EXPECT_EQ(LeadingInteger16("-10"), -10);
  EXPECT_EQ(LeadingInteger16("words"), 0);
  EXPECT_EQ(LeadingInteger16("32767"), 32767);
  ExpectFailure(kOverflow, [] { LeadingInteger16("32768"); });
  ExpectFailure(kOverflow, [] { LeadingInteger16("-40000 and more"); });
  ExpectFailure(kOverflow, [] { LeadingInteger16(std::string(400, '9')); });
}

TEST(WholeNumber, TakesTheWholeTextUnrounded) {
  EXPECT_EQ(WholeNumber(" 2.25 "), 2.25);
  EXPECT_EQ(WholeNumber("-100000"), -100000);
  ExpectFailure(kTypeMismatch, [] { WholeNumber(""); });
  ExpectFailure(kTypeMismatch, [] { WholeNumber("2.25x"); });
}

TEST(WholeInteger16, TakesTheWholeTextAsANumber) {
  EXPECT_EQ(WholeInteger16("365"), 365);
  EXPECT_EQ(WholeInteger16("  -7  "), -7);
  EXPECT_EQ(WholeInteger16("+7"), 7);
  EXPECT_EQ(WholeInteger16("1.5"), 2);
  EXPECT_EQ(WholeInteger16("2.5"), 2);
  EXPECT_EQ(WholeInteger16(".5"), 0);
  EXPECT_EQ(WholeInteger16("5."), 5);
}

TEST(WholeInteger16, FailsForAnythingElse) {
  for (const char* text :
       {"", "   ", "seven", "7 days", "1.2.3", "- 7", "-", ".", "7\t", "\t7", "7 7", "7x", "--7"}) {
    SCOPED_TRACE(text);
    ExpectFailure(kTypeMismatch, [&] { WholeInteger16(text); });
  }
}

TEST(WholeInteger16, FailsOutsideTheRange) {
  EXPECT_EQ(WholeInteger16("-32768"), -32768);
  ExpectFailure(kOverflow, [] { WholeInteger16("32768"); });
  ExpectFailure(kOverflow, [] { WholeInteger16("-32769"); });
  ExpectFailure(kOverflow, [] { WholeInteger16(std::string(400, '9')); });
}

}  // namespace
}  // namespace brenwick

#include "language/GetText.h"

#include <gtest/gtest.h>

#include "base/Failure.h"

namespace brenwick {
namespace {

TEST(GetText, PutsTheArgumentInPlaceOfThePlaceholder) {
  EXPECT_EQ(GetText("Abbreviations are read from %a", "C:\\x"),
            "Abbreviations are read from C:\\x");
  EXPECT_EQ(GetText("%a days", "7"), "7 days");
  EXPECT_EQ(GetText("older than %a days...", "30"), "older than 30 days...");
  EXPECT_EQ(GetText("%a", "all of it"), "all of it");
  EXPECT_EQ(GetText("kept %a days", ""), "kept  days");
}

TEST(GetText, LeavesATemplateWithoutPlaceholderAsItIs) {
  EXPECT_EQ(GetText("  nothing to fill in %  ", "7"), "  nothing to fill in %  ");
  EXPECT_EQ(GetText("%A days", "7"), "%A days");
  EXPECT_EQ(GetText("", "7"), "");
}

TEST(GetText, ReplacesOnlyTheFirstPlaceholder) {
  EXPECT_EQ(GetText("%a and %a", "one"), "one and %a");
  EXPECT_EQ(GetText("<%a>", "%a"), "<%a>");
}

TEST(GetText, DropsTrailingSpaces) {
  EXPECT_EQ(GetText("from %a  ", "John"), "from John");
  EXPECT_EQ(GetText("from %a, now  ", "John"), "from John, now");
}

TEST(GetText, LosesACharacterBehindThePlaceholderForEachLeadingSpace) {
  EXPECT_EQ(GetText(" %a days", "7"), " 7days");
  EXPECT_EQ(GetText("   %a days", "7"), "   7ys");
  EXPECT_EQ(GetText("  in %a days ", "7"), "  in 7ays");
  EXPECT_EQ(GetText("  x %a y", "7"), "  x 7");
}

TEST(GetText, FailsWithMoreLeadingSpacesThanCharactersBehindThePlaceholder) {
  for (const char* text : {" %a", "   %a d", "  %a  "}) {
    try {
      GetText(text, "7");
      ADD_FAILURE() << '"' << text << '"';
    } catch (const Failure& failure) {
      EXPECT_EQ(failure.Number(), kInvalidCall);
    }
  }
}

TEST(GetText, CountsCharactersAndNotBytes) {
  EXPECT_EQ(GetText("päivää: %a ä", "€"), "päivää: € ä");
  EXPECT_EQ(GetText("  ää %a 1äb", "7"), "  ää 7äb");
}

}  // namespace
}  // namespace brenwick

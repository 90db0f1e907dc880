#include "base/Lines.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

namespace brenwick {
namespace {

using Views = std::vector<std::string_view>;

TEST(LinesOfAFile, EndWithEitherLineEnd) {
  EXPECT_EQ(Lines("one\r\ntwo\r\n"), (Views{"one", "two"}));
  EXPECT_EQ(Lines("one\ntwo\n"), (Views{"one", "two"}));
  EXPECT_EQ(Lines("one\r\ntwo\nthree\r\n"), (Views{"one", "two", "three"}));
}

TEST(LinesOfAFile, MayLackTheLastLineEnd) {
  EXPECT_EQ(Lines("one\r\ntwo"), (Views{"one", "two"}));
  EXPECT_EQ(Lines("one"), (Views{"one"}));
}

TEST(LinesOfAFile, KeepEmptyOnes) {
  EXPECT_EQ(Lines("\r\none\r\n\r\n\r\ntwo\r\n\r\n"), (Views{"", "one", "", "", "two", ""}));
  EXPECT_EQ(Lines("\n\n"), (Views{"", ""}));
}

TEST(LinesOfAFile, AreNoneOfAnEmptyOne) { EXPECT_EQ(Lines(""), Views{}); }

TEST(LinesOfAFile, KeepEverythingBetween) {
  EXPECT_EQ(Lines("  a\tb  \n"), (Views{"  a\tb  "}));
  EXPECT_EQ(Lines("a\rb\r\n"), (Views{"a\rb"}));
  EXPECT_EQ(Lines("a\r\r\n"), (Views{"a\r"}));
  EXPECT_EQ(Lines(std::string_view("a\0b\nc", 5)), (Views{std::string_view("a\0b", 3), "c"}));
}

TEST(WithoutByteOrderMark, TakesOneMarkFromTheFront) {
  EXPECT_EQ(WithoutByteOrderMark("\xEF\xBB\xBFone"), "one");
  EXPECT_EQ(WithoutByteOrderMark("\xEF\xBB\xBF\xEF\xBB\xBF"), "\xEF\xBB\xBF");
  EXPECT_EQ(WithoutByteOrderMark("\xEF\xBB\xBF"), "");
}

TEST(WithoutByteOrderMark, LeavesEverythingElse) {
  for (const char* content : {"", "one", "one\xEF\xBB\xBF", "\xEF\xBBone", "\xFF\xFEone"}) {
    EXPECT_EQ(WithoutByteOrderMark(content), content);
  }
}

}  // namespace
}  // namespace brenwick

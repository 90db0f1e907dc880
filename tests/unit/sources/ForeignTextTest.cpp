#include "sources/ForeignText.h"

#include <gtest/gtest.h>

namespace brenwick {
namespace {

TEST(FirstBytes, KeepACharacterWholeOrLeaveItOut) {
  EXPECT_EQ(FirstBytes("abc", 3), "abc");
  EXPECT_EQ(FirstBytes("abcd", 3), "abc");
  EXPECT_EQ(FirstBytes("aä", 2), "a");
  EXPECT_EQ(FirstBytes("aäb", 3), "aä");
  EXPECT_EQ(FirstBytes("😀", 3), "");
}

TEST(OneLine, HasSpacesForWhatCannotBeSeen) {
  EXPECT_EQ(OneLine("Anna\r\nBaker\x01\xC2\x85!"), "Anna  Baker  !");
  EXPECT_EQ(OneLine("Anna\xE2\x80\xA8"
                    "Baker"),
            "Anna Baker");
  EXPECT_EQ(OneLine(" \n Anna \t"), "Anna");
  EXPECT_EQ(OneLine("\n"), "");
}

TEST(HasControls, TellsOfLineEndsOfEveryKind) {
  EXPECT_FALSE(HasControls("Größe 5 😀"));
  for (const char* text : {"a\nb", "a\r", "\x1B", "\x7F", "\xC2\x85", "\xE2\x80\xA9"}) {
    EXPECT_TRUE(HasControls(text)) << text;
  }
}

TEST(WithoutMarkup, LosesTheTagsThatNotificationsHave) {
  EXPECT_EQ(WithoutMarkup("<b>bold</b> and <i>so</i> <u>on</u>"), "bold and so on");
  EXPECT_EQ(WithoutMarkup("see <a href=\"https://x.example/?a=1&amp;b=2\">this</a>"), "see this");
  EXPECT_EQ(WithoutMarkup("<IMG src='x' alt='a &amp; b'/>!"), "a & b!");
  EXPECT_EQ(WithoutMarkup("<img src='x'>!"), "!");
  EXPECT_EQ(WithoutMarkup("one<br/>two<p>three</p>four"), "one\ntwo\nthree\nfour");
}

TEST(WithoutMarkup, FindsTheDescriptionOfAnImageAmongItsAttributes) {
  EXPECT_EQ(WithoutMarkup("<img src='\u023A.png' alt='cat'>"), "cat")
      << "a small letter may have more bytes than its capital";
  EXPECT_EQ(WithoutMarkup("<img src='\u212A\u212A\u212A\u212A' alt='cat'>"), "cat") << "or fewer";
  EXPECT_EQ(WithoutMarkup("<img src='/?alt=1' alt='cat'>"), "cat");
  EXPECT_EQ(WithoutMarkup("<img title=' alt=\"dog\"' ALT = 'cat'/>"), "cat");
  EXPECT_EQ(WithoutMarkup("<img alt='a cat>"), "a cat");
  for (const char* none : {"<img data-alt='cat'>", "<img alt=cat>", "<img alt=>", "<img alt>"}) {
    EXPECT_EQ(WithoutMarkup(none), "") << none;
  }
}

TEST(WithoutMarkup, ReadsEntities) {
  EXPECT_EQ(WithoutMarkup("&lt;b&gt; &amp;amp; &quot;&apos;&#228;&#xE4;"), "<b> &amp; \"'ää");
  EXPECT_EQ(WithoutMarkup("a&#10;b"), "a\nb");
}

TEST(WithoutMarkup, KeepsWhatOnlyLooksLikeMarkup) {
  for (const char* text : {"I <3 you", "a < b > c", "R&D", "AT&T; now", "&#0; &#1;", "&#x110000;",
                           "<unknown>", "<b", "<b <i", "&", "<", "<bold>", "&#;", "&#12x;"}) {
    EXPECT_EQ(WithoutMarkup(text), text);
  }
}

TEST(WithoutMarkup, HasLineFeedsAndNoWhiteEnds) {
  EXPECT_EQ(WithoutMarkup("\r\n a\r\nb\rc \n"), "a\nb\nc");
  EXPECT_EQ(WithoutMarkup(" \r\n\t"), "");
}

TEST(WithoutMarkup, TurnsANumberThatIsNoCharacterIntoTheReplacement) {
  EXPECT_EQ(WithoutMarkup("&#xD800;"), "\xEF\xBF\xBD");
}

}  // namespace
}  // namespace brenwick

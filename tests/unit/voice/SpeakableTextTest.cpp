// What of a text reaches the speech engine, and in which pieces.
#include "voice/SpeakableText.h"

#include <gtest/gtest.h>

#include <vector>

#include "base/Text.h"

namespace brenwick {
namespace {

std::string Plain(std::string_view text) { return ToUtf8(SpeakableText(text, false)); }
std::string WithEntities(std::string_view text) { return ToUtf8(SpeakableText(text, true)); }

std::vector<std::string> Pieces(const std::string& text) {
  const std::u32string speakable = SpeakableText(text, false);
  std::vector<std::string> pieces;
  std::u32string_view rest = speakable;
  for (std::string piece = NextPiece(rest); !piece.empty(); piece = NextPiece(rest)) {
    pieces.push_back(piece);
  }
  return pieces;
}

TEST(SpeakableText, KeepsAPlainTextAsItIs) {
  EXPECT_EQ(Plain("Grüße & <b>, &amp; [[x]] 😀"), "Grüße & <b>, &amp; [[x]] 😀");
  EXPECT_EQ(Plain(""), "");
}

TEST(SpeakableText, LeavesOutControlCharactersAndNoncharacters) {
  EXPECT_EQ(Plain("a\x01"
                  "b\x1F"
                  "c\x7F"
                  "d\u0080e\u009Ff"),
            "abcdef");
  EXPECT_EQ(Plain(std::string_view("a\0b", 3)), "ab");
  EXPECT_EQ(Plain("a\uFFFEb\uFFFFc\uFDD0d\U0001FFFEe\U0010FFFFf"), "abcdef");
  EXPECT_EQ(Plain("a\u00A0b\uFFFDc\uFDF0d"), "a\u00A0b\uFFFDc\uFDF0d");
}

TEST(SpeakableText, MakesOneSpaceOfTabsSpacesAndLineEnds) {
  EXPECT_EQ(Plain("a\tb  \t c"), "a b c");
  EXPECT_EQ(Pieces("a\r\n\r\n b"), std::vector<std::string>{"a b"});
}

TEST(SpeakableText, KeepsHyphensThatJoinAndMinusSigns) {
  for (const char* text : {"well-known", "a - b", "-5", "at -5", "555-1234", "Grün-weiß"}) {
    EXPECT_EQ(Plain(text), text);
  }
}

TEST(SpeakableText, MakesASpaceOfAHyphenThatJoinsNothing) {
  EXPECT_EQ(Plain(",-a '-h \"-\u01A7 :-) (-5)"), ", a ' h \" \u01A7 : ) ( 5)");
  EXPECT_EQ(Plain("1-\u094B 1-a --"), "1 \u094B 1 a - ");
}

TEST(SpeakableText, RepairsInvalidUtf8) {
  EXPECT_EQ(Plain("a\xFF"
                  "b"),
            "a\uFFFDb");
  EXPECT_EQ(Plain("\xC0\xBC"), "\uFFFD\uFFFD");
}

TEST(SpeakableText, TurnsWellFormedEntitiesIntoTheirCharacters) {
  EXPECT_EQ(WithEntities("&amp;&lt;&gt;&quot;&apos;"), "&<>\"'");
  EXPECT_EQ(WithEntities("&#65;&#x42;&#x1f600;&#0000067;&#xE9;"), "AB😀Cé");
  EXPECT_EQ(WithEntities("a&#9;b&#10;c&#13;d"), "a b\nc d");
}

TEST(SpeakableText, SaysEverythingElseAsItStands) {
  for (const char* text : {"&",
                           "&;",
                           "&amp",
                           "& amp;",
                           "&AMP;",
                           "&nbsp;",
                           "&#;",
                           "&#x;",
                           "&#X41;",
                           "&#65",
                           "&#6a;",
                           "&#x 41;",
                           "&#1;",
                           "&#x01;",
                           "&#127;",
                           "&#0;",
                           "&#xD800;",
                           "&#xFFFE;",
                           "&#1114112;",
                           "&#4294967361;",
                           "&#99999999999999;",
                           "<b>",
                           "&<;"}) {
    EXPECT_EQ(WithEntities(text), text);
  }
}

TEST(SpeakableText, LooksForEntitiesOnlyOnce) {
  EXPECT_EQ(WithEntities("&amp;lt;"), "&lt;");
  EXPECT_EQ(WithEntities("&#38;#60;"), "&#60;");
  EXPECT_EQ(WithEntities("&amp;amp;amp;"), "&amp;amp;");
  EXPECT_EQ(WithEntities("&&amp;amp;"), "&&amp;");
  EXPECT_EQ(WithEntities("&am\x01p;"), "&amp;");
}

TEST(SpeakableText, LeavesAThousandCharactersInOnePiece) {
  const std::string text = std::string(498, 'a') + ". " + std::string(500, 'b');
  EXPECT_EQ(Pieces(text), std::vector<std::string>{text});
  EXPECT_EQ(Pieces(""), std::vector<std::string>{});
  EXPECT_EQ(Pieces(" "), std::vector<std::string>{});
}

TEST(SpeakableText, SplitsALongerTextAtTheLastEndOfASentence) {
  const std::string long_word(600, 'x');
  for (const char* end : {".", "!", "?", "…", "।", "۔", "؟"}) {
    const std::string first = "One. Two" + std::string(end);
    EXPECT_EQ(Pieces(first + " three 3.14 " + long_word + " " + long_word),
              (std::vector<std::string>{first, "three 3.14 " + long_word + " ", long_word}))
        << end;
  }
  for (const char* end : {"。", "！", "？"}) {
    EXPECT_EQ(Pieces("一" + std::string(end) + "二 " + long_word + long_word)[0],
              "一" + std::string(end));
  }
  EXPECT_EQ(Pieces("one\ntwo " + long_word + long_word)[0], "one ");
}

TEST(SpeakableText, SplitsAtASpaceWhereNoSentenceEnds) {
  const std::string word(400, 'x');
  EXPECT_EQ(Pieces(word + " " + word + " " + word),
            (std::vector<std::string>{word + " " + word + " ", word}));
}

TEST(SpeakableText, SplitsAWordWithoutASpaceAfterAThousandCharacters) {
  std::string text;
  for (int i = 0; i < 2500; ++i) text += "é";
  const std::vector<std::string> pieces = Pieces(text);
  ASSERT_EQ(pieces.size(), 3U);
  EXPECT_EQ(CharacterCount(pieces[0]), 1000U);
  EXPECT_EQ(CharacterCount(pieces[2]), 500U);
  EXPECT_EQ(pieces[0] + pieces[1] + pieces[2], text);
}

}  // namespace
}  // namespace brenwick

#include "base/Text.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

namespace brenwick {
namespace {

// Made of numbers, so that no editor repairs it.
std::u32string Replacements(std::size_t count) { return std::u32string(count, U'\xFFFD'); }

struct Invalid {
  std::string_view bytes;
  std::u32string characters;
};

std::vector<Invalid> InvalidTexts() {
  return {
      {"\x80", Replacements(1)},          // a continuation that continues nothing
      {"\xBF\xBF", Replacements(2)},      //
      {"\xC3", Replacements(1)},          // cut off
      {"\xE2\x82", Replacements(2)},      //
      {"\xF0\x9F\x98", Replacements(3)},  //
      {"\xC3(", Replacements(1) + U"("},  // broken off by something else
      {"\xE2(\xA1", Replacements(1) + U"(" + Replacements(1)},
      {"\xE2\x82z", Replacements(2) + U"z"},      //
      {"\xF0\x9F\x98z", Replacements(3) + U"z"},  //
      {"\xE2\xC3\xA4", Replacements(1) + U"ä"},   //
      {"\xC0\xAF", Replacements(2)},              // longer than need be
      {"\xC1\xBF", Replacements(2)},              //
      {"\xE0\x80\xAF", Replacements(3)},          //
      {"\xE0\x9F\xBF", Replacements(3)},          //
      {"\xF0\x80\x80\xAF", Replacements(4)},      //
      {"\xF0\x8F\xBF\xBF", Replacements(4)},      //
      {"\xED\xA0\x80", Replacements(3)},          // surrogates
      {"\xED\xBF\xBF", Replacements(3)},          //
      {"\xF4\x90\x80\x80", Replacements(4)},      // beyond the last character
      {"\xF5\x80\x80\x80", Replacements(4)},      //
      {"\xF8\x88\x80\x80\x80", Replacements(5)},  // leads that never occur
      {"\xFE", Replacements(1)},                  //
      {"\xFF", Replacements(1)},                  //
      {"a\xFFz", U"a" + Replacements(1) + U"z"},
  };
}

TEST(Text, DecodesCharactersOfEveryLength) {
  EXPECT_EQ(Characters("aä€😀"), U"aä€😀");
  EXPECT_EQ(Characters(""), U"");
  EXPECT_EQ(Characters(std::string_view("a\0b", 3)), std::u32string(U"a\0b", 3));
}

TEST(Text, ComesBackAtTheEdgesOfEveryLength) {
  for (const char32_t character :
       {U'\x0', U'\x7F', U'\x80', U'\x7FF', U'\x800', U'\xD7FF', U'\xE000', U'\xFFFD', U'\xFFFE',
        U'\xFFFF', U'\x10000', U'\x10FFFF'}) {
    const std::string text = ToUtf8(std::u32string(1, character));
    const std::size_t length = character < 0x80      ? 1
                               : character < 0x800   ? 2
                               : character < 0x10000 ? 3
                                                     : 4;
    EXPECT_EQ(text.size(), length) << static_cast<unsigned>(character);
    EXPECT_TRUE(IsValidUtf8(text)) << static_cast<unsigned>(character);
    EXPECT_EQ(Characters(text), std::u32string(1, character));
  }
}

TEST(Text, PutsTheReplacementForEachByteThatBelongsToNoCharacter) {
  for (const Invalid& text : InvalidTexts()) {
    EXPECT_EQ(Characters(text.bytes), text.characters) << text.bytes;
    EXPECT_FALSE(IsValidUtf8(text.bytes)) << text.bytes;
    EXPECT_EQ(Repaired(text.bytes), ToUtf8(text.characters)) << text.bytes;
    EXPECT_EQ(CharacterCount(text.bytes), text.characters.size()) << text.bytes;
  }
}

TEST(Text, RepairLeavesAValidTextAlone) {
  EXPECT_EQ(Repaired("¿Qué? \xEF\xBF\xBD 😀"), "¿Qué? \xEF\xBF\xBD 😀");
  EXPECT_TRUE(IsValidUtf8("¿Qué? 😀"));
  EXPECT_TRUE(IsValidUtf8(""));
}

TEST(Text, NeverWritesAnInvalidCharacter) {
  for (const char32_t character : {0xD800U, 0xDFFFU, 0x110000U, 0xFFFFFFFFU}) {
    EXPECT_EQ(ToUtf8(std::u32string(1, character)), "\xEF\xBF\xBD");
  }
  std::string text = "a";
  AppendUtf8(text, 0xDC00);
  EXPECT_EQ(text, "a\xEF\xBF\xBD");
}

TEST(Text, MapsCaseInEveryScript) {
  const std::vector<std::pair<std::string, std::string>> pairs = {
      {"the quick brown fox", "THE QUICK BROWN FOX"},
      {"äöüéñçø", "ÄÖÜÉÑÇØ"},
      {"ÿāłžơǆ", "ŸĀŁŽƠǄ"},
      {"αβγέώ", "ΑΒΓΈΏ"},
      {"привет ёђ", "ПРИВЕТ ЁЂ"},
      {"աբգ", "ԱԲԳ"},
      {"ⅷⓐａ", "ⅧⒶＡ"},
      {"𐐨𐑏", "𐐀𐐧"},
  };
  for (const auto& [lower, upper] : pairs) {
    EXPECT_EQ(UpperCase(lower), upper);
    EXPECT_EQ(LowerCase(upper), lower);
    EXPECT_EQ(UpperCase(upper), upper);
    EXPECT_EQ(LowerCase(lower), lower);
  }
}

TEST(Text, MapsOneCharacterToOneCharacter) {
  EXPECT_EQ(UpperCase("Straße"), "STRAßE");
  EXPECT_EQ(LowerCase("ẞ"), "ß");
  EXPECT_EQ(UpperCase("ŉﬁ"), "ŉﬁ");
  EXPECT_EQ(LowerCase("İ"), "i");
  EXPECT_EQ(UpperCase("ı"), "I");
  EXPECT_EQ(UpperCase("ᾳ"), "ᾼ");
}

TEST(Text, KnowsTheCharactersWithMoreThanTwoForms) {
  EXPECT_EQ(UpperCase("ǅ"), "Ǆ");
  EXPECT_EQ(LowerCase("ǅ"), "ǆ");
  EXPECT_EQ(UpperCase("σς"), "ΣΣ");
  EXPECT_EQ(LowerCase("Σ"), "σ");
  EXPECT_EQ(LowerCase("\xE2\x84\xAA"), "k");  // the Kelvin sign
  EXPECT_EQ(UpperCase("ſµ"), "SΜ");
}

TEST(Text, LeavesWhatHasNoCase) {
  // What stands beside the letters, between them, and at the end of all characters.
  for (const std::string text : {"@[`{ 0129 \t", "×÷ªº¿", "ĸ", "漢字 かな אב", "😀\U0010FFFF"}) {
    EXPECT_EQ(UpperCase(text), text);
    EXPECT_EQ(LowerCase(text), text);
  }
}

TEST(Text, RepairsWhatItMaps) {
  EXPECT_EQ(UpperCase("a\xFFz"), "A\xEF\xBF\xBDZ");
  EXPECT_EQ(LowerCase("A\xC3"), "a\xEF\xBF\xBD");
}

TEST(Text, TrimsSpacesAndNothingElse) {
  EXPECT_EQ(Trimmed("  a  b "), "a  b");
  EXPECT_EQ(Trimmed("a"), "a");
  EXPECT_EQ(Trimmed("   "), "");
  EXPECT_EQ(Trimmed(""), "");
  EXPECT_EQ(Trimmed(" \t a\r\n "), "\t a\r\n");
  EXPECT_EQ(Trimmed("\xC2\xA0 a \xE3\x80\x80"), "\xC2\xA0 a \xE3\x80\x80");
}

TEST(Text, IsBlankWithSpacesAlone) {
  EXPECT_TRUE(IsBlank(""));
  EXPECT_TRUE(IsBlank("   "));
  EXPECT_FALSE(IsBlank(" \t "));
  EXPECT_FALSE(IsBlank(" . "));
}

TEST(Text, IsCutBetweenCharacters) {
  EXPECT_EQ(FirstCharacters("señor", 3), "señ");
  EXPECT_EQ(AfterCharacters("señor", 3), "or");
  EXPECT_EQ(FirstCharacters("😀😀", 1), "😀");
  EXPECT_EQ(AfterCharacters("😀😀", 1), "😀");
  EXPECT_EQ(FirstCharacters("señor", 0), "");
  EXPECT_EQ(AfterCharacters("señor", 0), "señor");
}

TEST(Text, IsTakenWholeWhereItIsTooShort) {
  EXPECT_EQ(FirstCharacters("señor", 5), "señor");
  EXPECT_EQ(FirstCharacters("señor", 99), "señor");
  EXPECT_EQ(AfterCharacters("señor", 5), "");
  EXPECT_EQ(AfterCharacters("señor", 99), "");
  EXPECT_EQ(FirstCharacters("", 1), "");
}

TEST(Text, CutsInvalidBytesOneByOne) {
  EXPECT_EQ(FirstCharacters("\xFF\xE2\x82z", 2), "\xFF\xE2");
  EXPECT_EQ(AfterCharacters("\xFF\xE2\x82z", 2), "\x82z");
}

TEST(Text, CountsCharacters) {
  EXPECT_EQ(CharacterCount("señor"), 5U);
  EXPECT_EQ(CharacterCount("aä€😀"), 4U);
  EXPECT_EQ(CharacterCount(""), 0U);
}

TEST(LessIgnoringCase, OrdersWhateverTheCase) {
  const std::vector<std::string> ordered = {"", "10", "Adam", "BERT", "bertram", "Éva", "ёж"};
  for (std::size_t i = 0; i < ordered.size(); ++i) {
    for (std::size_t k = 0; k < ordered.size(); ++k) {
      EXPECT_EQ(LessIgnoringCase(ordered[i], ordered[k]), i < k)
          << ordered[i] << ", " << ordered[k];
    }
  }
}

TEST(LessIgnoringCase, FindsNoOrderBetweenCases) {
  for (const auto& [a, b] : std::vector<std::pair<std::string, std::string>>{
           {"anna", "ANNA"}, {"ÉVA", "éva"}, {"ñ", "Ñ"}, {"ς", "σ"}, {"", ""}}) {
    EXPECT_FALSE(LessIgnoringCase(a, b)) << a;
    EXPECT_FALSE(LessIgnoringCase(b, a)) << a;
  }
}

}  // namespace
}  // namespace brenwick

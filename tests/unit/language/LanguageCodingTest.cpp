#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "base/CodePage.h"
#include "base/Lines.h"
#include "base/Text.h"
#include "language/Coding.h"

namespace brenwick {
namespace {

std::string EveryByte() {
  std::string bytes;
  for (int code = 0; code < 256; ++code) bytes += static_cast<char>(code);
  return bytes;
}

template <typename Call>
void ExpectFailure(FailureNumber number, Call call) {
  try {
    call();
    ADD_FAILURE() << "no failure " << number;
  } catch (const Failure& failure) {
    EXPECT_EQ(failure.Number(), number);
  }
}

void ExpectRefusedLine(std::string_view source, std::size_t line) {
  try {
    CodeLanguage(source);
    ADD_FAILURE() << '"' << source << '"';
  } catch (const SourceFailure& failure) {
    EXPECT_EQ(failure.Number(), kInvalidCall);
    EXPECT_EQ(failure.Line(), line);
  }
}

TEST(CodePage, KeepsAsciiAndTheWestEuropeanLetters) {
  EXPECT_EQ(FromWindows1252("Says :"), "Says :");
  EXPECT_EQ(FromWindows1252("Espa\xF1ol"), "Español");
  EXPECT_EQ(ToWindows1252("Español"), "Espa\xF1ol");
}

TEST(CodePage, KnowsItsOwnCharacters) {
  EXPECT_EQ(FromWindows1252("\x80 \x85 \x91\x92 \x93\x94 \x96 \x99 \x9F"), "€ … ‘’ “” – ™ Ÿ");
  EXPECT_EQ(ToWindows1252("€ … ‘’ “” – ™ Ÿ"), "\x80 \x85 \x91\x92 \x93\x94 \x96 \x99 \x9F");
}

TEST(CodePage, GivesEveryByteBack) {
  const std::string text = FromWindows1252(EveryByte());
  EXPECT_TRUE(IsValidUtf8(text));
  EXPECT_EQ(CharacterCount(text), 256U);
  EXPECT_EQ(ToWindows1252(text), EveryByte());
}

TEST(CodePage, TakesUndefinedBytesForControlCharacters) {
  EXPECT_EQ(FromWindows1252("\x81\x8D\x8F\x90\x9D"), "\xC2\x81\xC2\x8D\xC2\x8F\xC2\x90\xC2\x9D");
}

TEST(CodePage, HasNoByteForOtherCharacters) {
  EXPECT_EQ(ToWindows1252("Привет"), std::nullopt);
  EXPECT_EQ(ToWindows1252("smile 😀"), std::nullopt);
  EXPECT_EQ(ToWindows1252("\xC2\x80"), std::nullopt);  // 80 is the euro sign
  EXPECT_EQ(ToWindows1252("invalid \xFF"), std::nullopt);
}

TEST(Coding, ShiftsByATenthOfThePosition) {
  EXPECT_EQ(GetCodedString("aaaaaaaaa"), "aaaaaaaaa");
  EXPECT_EQ(GetCodedString("aaaaaaaaaa"), "aaaaaaaaab");
  EXPECT_EQ(GetCodedString("aaaaaaaaaaaaaaaaaaaaa"), "aaaaaaaaabbbbbbbbbbcc");
  EXPECT_EQ(GetDeCodedString("aaaaaaaaabbbbbbbbbbcc"), "aaaaaaaaaaaaaaaaaaaaa");
  EXPECT_EQ(GetCodedString(""), "");
}

TEST(Coding, GivesEveryLineBack) {
  for (int code = 32; code <= 245; ++code) {
    for (const std::size_t length : {1U, 9U, 10U, 57U, 100U}) {
      const std::string line(length, static_cast<char>(code));
      EXPECT_EQ(GetDeCodedString(GetCodedString(line)), line);
    }
  }
}

TEST(Coding, RefusesCodesOutOfRange) {
  EXPECT_EQ(GetCodedString("123456789\xFE"), "123456789\xFF");
  ExpectFailure(kInvalidCall, [] { GetCodedString("123456789\xFF"); });
  const std::string zero("123456789\0", 10);
  ExpectFailure(kInvalidCall, [&] { GetDeCodedString(zero); });
  const std::string tooLong(2560, 'a');
  ExpectFailure(kInvalidCall, [&] { GetCodedString(tooLong); });
}

TEST(Coding, ChecksumAddsCodesUpToItsRange) {
  LanguageChecksum checksum;
  checksum.Add("a\xFF ");
  EXPECT_EQ(checksum.Value(), 97 + 255 + 32);

  const std::string large(8'421'504, '\xFF');
  LanguageChecksum full;
  full.Add(large);
  EXPECT_EQ(full.Value(), 2'147'483'520);
  full.Add("\x7F");
  EXPECT_EQ(full.Value(), 2'147'483'647);
  ExpectFailure(kOverflow, [&] { full.Add("\x01"); });
}

TEST(Coding, SplitsLinesAtEitherEnd) {
  using Views = std::vector<std::string_view>;
  EXPECT_EQ(Lines("a\r\n\nb"), (Views{"a", "", "b"}));
  EXPECT_EQ(Lines("a\n"), (Views{"a"}));
  EXPECT_EQ(Lines(""), Views{});
}

TEST(CodeLanguage, CodesEachTextAndEndsWithTheChecksum) {
  // 65; 10 times 97; 241
  EXPECT_EQ(CodeLanguage("A\naaaaaaaaaa\nñ\n"), "A\r\naaaaaaaaab\r\n\xF1\r\n1276\r\n");
}

TEST(CodeLanguage, TakesEitherLineEndAndLeavesBlankLinesOut) {
  const std::string coded = CodeLanguage("one\ntwo \n three\n");
  EXPECT_EQ(CodeLanguage("one\r\ntwo \r\n three"), coded);
  EXPECT_EQ(CodeLanguage("\none\n   \n\ntwo \n          \n three\n\n"), coded);
  EXPECT_EQ(CodeLanguage("\xEF\xBB\xBFone\ntwo \n three\n"), coded);
}

TEST(CodeLanguage, KeepsSpacesAroundATextAndCountsThem) {
  EXPECT_EQ(CodeLanguage(" x \n"), " x \r\n184\r\n");
}

TEST(CodeLanguage, OfNoTextIsItsChecksum) { EXPECT_EQ(CodeLanguage(""), "0\r\n"); }

TEST(CodeLanguage, NamesTheLineThatItRefuses) {
  ExpectRefusedLine("one\n\nПривет\n", 3);
  ExpectRefusedLine("one\ntwo, but \xFF\n", 2);
  ExpectRefusedLine("one\n123456789ÿ\n", 2);
}

TEST(CodeLanguage, RefusesWhatWouldMoveTheTextsBehindIt) {
  ExpectRefusedLine("123456789\t\n", 1);  // a tab there becomes a line end
  ExpectRefusedLine("one\ntwo\rthree\n", 2);
  ExpectRefusedLine("         \x1F\n", 1);  // and this a line of ten spaces
}

TEST(PlainSource, IsTheSourceInTheCodePage) {
  EXPECT_EQ(PlainSource("one\n\nseñal \n"),
            "one\r\n\r\nse\xF1"
            "al \r\n");
  EXPECT_EQ(PlainSource("one\r\ntwo"), "one\r\ntwo\r\n");
  ExpectFailure(kInvalidCall, [] { PlainSource("Привет"); });
}

}  // namespace
}  // namespace brenwick

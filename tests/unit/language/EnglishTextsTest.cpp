// The English texts, which every other language follows line by line.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <fstream>
#include <iterator>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "base/CodePage.h"
#include "base/Lines.h"
#include "base/Text.h"
#include "language/Coding.h"

namespace brenwick {
namespace {

std::string Source() {
  std::ifstream file(BRENWICK_SOURCE_DIR "/languages/English.txt", std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

// The texts under their ids: entry 0 belongs to none.
std::vector<std::string> Texts() {
  const std::string source = Source();
  std::vector<std::string> texts = {""};
  for (const std::string_view line : Lines(source)) {
    if (!IsBlank(line)) texts.emplace_back(line);
  }
  return texts;
}

// The ids of the texts for which a condition holds.
template <typename Condition>
std::set<std::size_t> IdsWhere(Condition holds) {
  const std::vector<std::string> texts = Texts();
  std::set<std::size_t> ids;
  for (std::size_t id = 1; id < texts.size(); ++id) {
    if (holds(texts[id])) ids.insert(id);
  }
  return ids;
}

void ExpectTexts(const std::map<std::size_t, std::string>& expected) {
  const std::vector<std::string> texts = Texts();
  ASSERT_EQ(texts.size(), 205U);
  for (const auto& [id, text] : expected) EXPECT_EQ(texts[id], text) << "text " << id;
}

TEST(EnglishTexts, AreAllThere) { EXPECT_EQ(Texts().size() - 1, 204U); }

TEST(EnglishTexts, HoldTheWordsThatTheProgramComparesWith) {
  ExpectTexts({{116, "M"}, {117, "F"}, {167, "True"}, {168, "False"}});
}

TEST(EnglishTexts, SayTheStatesAsTheProgramBuildsItsSentences) {
  ExpectTexts({{1, " (online) "},
               {2, " (offline) "},
               {29, "says"},
               {30, "is online."},
               {31, "is offline."},
               {32, "is away."},
               {33, "is busy."},
               {171, "Nobody"}});
}

TEST(EnglishTexts, CaptionTheOptions) {
  ExpectTexts({{11, "Welcome to the Brenwick."},
               {20, "Introduce the Brenwick on startup"},
               {21, "Don't show this dialog on startup"},
               {22, "Start with Windows"},
               {23, "Introduce user"},
               {24, "Do not speak message, only state"},
               {25, "Notify user state information"},
               {26, "Only say users firstname"},
               {27, "Notify me on e-mail arrival"},
               {28, "Mute"},
               {34, "Finish sentence"},
               {45, "Use SCROLL-LOCK to stop speaking"},
               {46, "Check for newer Brenwick"},
               {76, "Check for newer Windows Messenger"},
               {98, "Use my own names"},
               {123, ">= -10 AND <= 10"},
               {124, ">= -10 AND <= 10"},
               {150, "Debug to logfile"},
               {152, "Log conversations"},
               {160, "Automatically delete conversation logs"},
               {161, "Automatically delete debug logs"},
               {162, "Use repeat hotkeys"}});
}

TEST(EnglishTexts, CaptionThePagesAndButtons) {
  ExpectTexts(
      {{3, "General"},         {4, "Spoken"},        {5, "Text"},          {6, "About"},
       {7, "Spoken words"},    {15, "Defaults"},     {16, "Remove"},       {35, "Select all"},
       {36, "Clear all"},      {41, "Contact info"}, {42, "Ignore"},       {65, "Test"},
       {66, "Emoticons"},      {112, "Language :"},  {115, "Voices"},      {120, "Gender"},
       {142, "Website"},       {144, "Save"},        {146, "Log options"}, {151, "Repeat"},
       {153, "Save settings"}, {154, "Buddynames"},  {155, "Contact"},     {157, "OK"},
       {158, "Cancel"},        {159, "Delete"},      {164, "Status"},      {166, "Email"},
       {169, "Name"},          {173, "Ignore"}});
}

TEST(EnglishTexts, HoldThePlaceholderWhereTheProgramFillsItIn) {
  EXPECT_EQ(IdsWhere([](const std::string& text) { return text.find("%a") != text.npos; }),
            (std::set<std::size_t>{50, 59, 67, 69, 148, 149, 175, 176, 185, 193, 194, 195}));
}

// A space too many or too few is heard, and editors like to remove it.
TEST(EnglishTexts, HaveSpacesAroundThemOnlyWhereTheyAreJoined) {
  EXPECT_EQ(IdsWhere([](const std::string& text) { return text.front() == ' '; }),
            (std::set<std::size_t>{1, 2}));
  EXPECT_EQ(IdsWhere([](const std::string& text) { return text.back() == ' '; }),
            (std::set<std::size_t>{1, 2, 61, 111}));
}

TEST(EnglishTexts, ArePrintableTextOfTheCodePage) {
  EXPECT_TRUE(ToWindows1252(Source()).has_value());
  EXPECT_EQ(Source().find('\r'), std::string::npos);
  EXPECT_EQ(IdsWhere([](const std::string& text) {
              const std::u32string characters = Characters(text);
              return std::any_of(characters.begin(), characters.end(), [](char32_t character) {
                return character < 0x20 || (character >= 0x7F && character < 0xA0);
              });
            }),
            std::set<std::size_t>{});
}

// A failed version check shows its text where the newest version is read from: a digit in it would
// be taken for a version.
TEST(EnglishTexts, SayWithoutADigitThatTheVersionIsNotKnown) {
  EXPECT_EQ(Texts().at(73).find_first_of("0123456789"), std::string::npos);
}

TEST(EnglishTexts, ComeBackFromTheirCodedForm) {
  const std::string coded = CodeLanguage(Source());
  std::vector<std::string_view> lines = Lines(coded);
  ASSERT_EQ(lines.size(), 205U);
  LanguageChecksum checksum;
  std::vector<std::string> texts = {""};
  for (std::size_t i = 0; i + 1 < lines.size(); ++i) {
    const std::string plain = GetDeCodedString(lines[i]);
    checksum.Add(plain);
    texts.push_back(FromWindows1252(plain));
  }
  EXPECT_EQ(texts, Texts());
  EXPECT_EQ(std::to_string(checksum.Value()), lines.back());
}

}  // namespace
}  // namespace brenwick

// The table of abbreviations that a new user starts with. It is applied without regard for word
// boundaries: the first row that occurs anywhere in a sentence replaces its first occurrence.
#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <string>
#include <string_view>
#include <vector>

#include "base/Lines.h"
#include "base/Text.h"
#include "language/Coding.h"

namespace brenwick {
namespace {

struct Row {
  std::string abbreviation;
  std::string spoken;
};

std::string FileContent(const std::string& name) {
  std::ifstream file(BRENWICK_SOURCE_DIR "/languages/" + name, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

std::vector<std::string> FilledLines(const std::string& name) {
  const std::string content = FileContent(name);
  std::vector<std::string> lines;
  for (const std::string_view line : Lines(content)) {
    if (!IsBlank(line)) lines.emplace_back(line);
  }
  return lines;
}

std::vector<Row> Table() {
  std::vector<Row> table;
  for (const std::string& line : FilledLines("Abbreviations.Txt")) {
    const std::size_t equals = line.find('=');
    if (equals != std::string::npos)
      table.push_back({line.substr(0, equals), line.substr(equals + 1)});
  }
  return table;
}

std::string Replaced(std::string sentence) {
  for (const Row& row : Table()) {
    const std::size_t found = sentence.find(row.abbreviation);
    if (found != std::string::npos)
      return sentence.replace(found, row.abbreviation.size(), row.spoken);
  }
  return sentence;
}

TEST(StarterAbbreviations, AreRowsOfTwo) {
  const std::vector<Row> table = Table();
  EXPECT_GE(table.size(), 100U);
  EXPECT_EQ(table.size(), FilledLines("Abbreviations.Txt").size());
  EXPECT_TRUE(IsValidUtf8(FileContent("Abbreviations.Txt")));
  for (const Row& row : table) {
    EXPECT_FALSE(IsBlank(row.abbreviation)) << row.spoken;
    EXPECT_FALSE(IsBlank(row.spoken)) << row.abbreviation;
  }
}

TEST(StarterAbbreviations, CanEachBeReached) {
  const std::vector<Row> table = Table();
  for (std::size_t i = 0; i < table.size(); ++i) {
    for (std::size_t earlier = 0; earlier < i; ++earlier) {
      EXPECT_EQ(table[i].abbreviation.find(table[earlier].abbreviation), std::string::npos)
          << '"' << table[i].abbreviation << "\" behind \"" << table[earlier].abbreviation << '"';
    }
  }
}

// A row that takes a space away must put one back, or two words are said as one.
TEST(StarterAbbreviations, KeepTheSpacesAroundThem) {
  for (const Row& row : Table()) {
    const bool inFront = row.abbreviation.front() == ' ';
    const bool behind = row.abbreviation.back() == ' ';
    EXPECT_TRUE(!inFront || row.spoken.front() == ' ') << row.abbreviation;
    EXPECT_TRUE(!behind || row.spoken.back() == ' ') << row.abbreviation;
  }
}

TEST(StarterAbbreviations, AreSpokenInPlainWords) {
  for (const Row& row : Table())
    EXPECT_EQ(row.spoken.find_first_of("<>&%#/\\"), std::string::npos) << row.spoken;
}

TEST(StarterAbbreviations, AreSaidInFull) {
  EXPECT_EQ(Replaced("John says how r u?"), "John says how are you?");
  EXPECT_EQ(Replaced("John says c u l8r"), "John says see you later");
  EXPECT_EQ(Replaced("John says u there?"), "John says you there?");
  EXPECT_EQ(Replaced("John says that was great lol"), "John says that was great laughing out loud");
  EXPECT_EQ(Replaced("John says brb"), "John says be right back");
  EXPECT_EQ(Replaced("John says thx!"), "John says thanks!");
  EXPECT_EQ(Replaced("hello :-)"), "hello  smile ");
  EXPECT_EQ(Replaced("hello:)"), "hello smile ");
  EXPECT_EQ(Replaced("well >:("), "well  angry ");
  EXPECT_EQ(Replaced("love you <3"), "love you  heart ");
  EXPECT_EQ(Replaced("John says \xE2\x9D\xA4\xEF\xB8\x8F"), "John says  heart ");
}

TEST(StarterAbbreviations, LeaveOrdinaryWordsAlone) {
  const std::vector<std::string> words = {
      "apple",     "supply",      "bubble",  "lollipop", "lolly",     "limousine", "input",
      "use",       "up",          "under",   "until",    "us",        "you",       "your",
      "year",      "type",        "typical", "pretty",   "run",       "red",       "are",
      "urgent",    "urban",       "turn",    "because",  "cut",       "cup",       "cyan",
      "custom",    "profligate",  "Kafka",   "text",     "message",   "people",    "please",
      "temples",   "thanks",      "think",   "though",   "something", "sometimes", "before",
      "great",     "later",       "late",    "mate",     "straight",  "website",   "imagine",
      "important", "imagination", "night",   "morning",  "without",   "boyfriend", "know",
      "now",       "knew",        "home",    "Oh",       "XP",        "DVD",       "2003",
      "gnome",     "gmail",       "wbs",     "bc1",      "sthenic",   "irony",     "girl"};
  for (const std::string& word : words) {
    for (const std::string& sentence :
         {"John says " + word + " and " + word + ".", word, "Is it " + word + "?",
          "I said: " + word + ", " + word + "! (" + word + ")"})
      EXPECT_EQ(Replaced(sentence), sentence);
  }
}

TEST(StarterAbbreviations, LeaveAddressesTimesAndListsAlone) {
  for (const char* sentence :
       {"see http://www.example.org/page or https://example.org/", "at 12:30 or 8:00 (about 8)",
        "it is in C:\\Documents\\list.txt", "write to uwe.r@example.org",
        "1) first 2) second a) third", "the sum is 2 + 4 - 8 / 2", "To: Paul, Subject: Dinner"})
    EXPECT_EQ(Replaced(sentence), sentence);
}

TEST(StarterAbbreviations, LeaveTheProgramsOwnTextsAlone) {
  for (const std::string& text : FilledLines("English.txt"))
    EXPECT_EQ(Replaced("John Smith " + text + " 7"), "John Smith " + text + " 7");
}

}  // namespace
}  // namespace brenwick

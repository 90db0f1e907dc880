// Every language against English: the program finds its texts by number alone, so each must say the
// same in the same place.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <filesystem>
#include <fstream>
#include <functional>
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

namespace fs = std::filesystem;

const fs::path kFolder = BRENWICK_SOURCE_DIR "/languages";

std::string Content(const std::string& name) {
  std::ifstream file(kFolder / name, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

std::string Source(const std::string& language) { return Content(language + ".txt"); }

std::set<std::string> Languages() {
  std::set<std::string> languages;
  for (const fs::directory_entry& entry : fs::directory_iterator(kFolder)) {
    const fs::path& path = entry.path();
    if (path.extension() == ".txt" && path.stem() != "CMakeLists") languages.insert(path.stem());
  }
  return languages;
}

// The texts under their ids: entry 0 belongs to none.
std::vector<std::string> Texts(const std::string& language) {
  const std::string source = Source(language);
  std::vector<std::string> texts = {""};
  for (const std::string_view line : Lines(source)) {
    if (!IsBlank(line)) texts.emplace_back(line);
  }
  return texts;
}

using Check = std::function<void(const std::string& english, const std::string& text)>;

void ForEachText(const Check& check, const std::set<std::size_t>& ids = {}) {
  const std::vector<std::string> english = Texts("English");
  for (const std::string& language : Languages()) {
    const std::vector<std::string> texts = Texts(language);
    ASSERT_EQ(texts.size(), english.size()) << language;
    for (std::size_t id = 1; id < texts.size(); ++id) {
      if (!ids.empty() && !ids.contains(id)) continue;
      SCOPED_TRACE(language + ", text " + std::to_string(id) + ": " + texts[id]);
      check(english[id], texts[id]);
    }
  }
}

std::size_t Count(std::string_view text, std::string_view part) {
  std::size_t count = 0;
  for (std::size_t at = text.find(part); at != text.npos; at = text.find(part, at + 1)) ++count;
  return count;
}

// What stays as it is in every language: words that the program compares with, a range, a name.
const std::set<std::size_t> kFixed = {102, 116, 117, 123, 124, 167, 168};

// The words that a language shares with English.
const std::map<std::string, std::set<std::string>> kShared = {
    {"Deutsch",
     {" (online) ", " (offline) ", "Text", "Emoticons", "Website", "OK", "Status", "Name"}},
    {"Español", {"General", "No"}},
    {"Français", {"Options", "Volume :", "Contact", "Contacts", "OK"}},
    {"Italiano", {" (online) ", " (offline) ", "No", "OK"}},
    {"Nederlands",
     {" (online) ", " (offline) ", "is online.", "is offline.", "Emoticons", "Website", "Contact",
      "OK", "Status", "Ctrl+Shift+%a"}},
    {"Português", {"Emoticons", "OK", "Ctrl+Shift+%a"}}};

// Composed characters, as Languages() compares bytes: "Español" has to lower-case to "español".
TEST(Languages, AreSeven) {
  EXPECT_EQ(Languages(), (std::set<std::string>{"Deutsch", "English", "Español", "Français",
                                                "Italiano", "Nederlands", "Português"}));
}

TEST(Languages, AreGroupedAsEnglishIs) {
  const auto groups = [](const std::string& language) {
    const std::string source = Source(language);
    std::vector<bool> blank;
    for (const std::string_view line : Lines(source)) blank.push_back(IsBlank(line));
    return blank;
  };
  for (const std::string& language : Languages()) {
    EXPECT_EQ(groups(language), groups("English")) << language;
  }
}

TEST(Languages, HoldThePlaceholderWhereEnglishDoes) {
  ForEachText([](const std::string& english, const std::string& text) {
    EXPECT_EQ(Count(text, "%a"), Count(english, "%a"));
  });
}

TEST(Languages, HoldTheWordsThatTheProgramComparesWith) {
  ForEachText([](const std::string& english, const std::string& text) { EXPECT_EQ(text, english); },
              kFixed);
}

// The spaces around a text join it to a name; filling in a placeholder would lose them.
TEST(Languages, HaveTheSpacesOfEnglishAroundThem) {
  const auto leading = [](const std::string& text) { return text.find_first_not_of(' '); };
  const auto trailing = [](const std::string& text) {
    return text.size() - text.find_last_not_of(' ');
  };
  ForEachText([&](const std::string& english, const std::string& text) {
    EXPECT_EQ(leading(text), leading(english));
    EXPECT_EQ(trailing(text), trailing(english));
    if (text.find("%a") != text.npos) {
      EXPECT_EQ(Trimmed(text), text);
    }
  });
}

TEST(Languages, LeaveNothingInEnglishByOversight) {
  const std::vector<std::string> english = Texts("English");
  for (const std::string& language : Languages()) {
    if (language == "English") continue;
    const std::vector<std::string> texts = Texts(language);
    ASSERT_EQ(texts.size(), english.size()) << language;
    std::set<std::string> same;
    for (std::size_t id = 1; id < texts.size(); ++id) {
      if (texts[id] == english[id] && !kFixed.contains(id)) same.insert(texts[id]);
    }
    EXPECT_EQ(same, kShared.at(language)) << language;
  }
}

TEST(Languages, AreReadableText) {
  ForEachText([](const std::string&, const std::string& text) {
    EXPECT_TRUE(IsValidUtf8(text));
    EXPECT_TRUE(ToWindows1252(text).has_value());
    const std::u32string characters = Characters(text);
    EXPECT_TRUE(std::none_of(characters.begin(), characters.end(), [](char32_t character) {
      return character < 0x20 || (character >= 0x7F && character <= 0xA0);
    }));
    EXPECT_TRUE(std::any_of(characters.begin(), characters.end(), [](char32_t character) {
      return UpperCase(character) != LowerCase(character);
    }));
  });
}

// The coding moves characters up by their place in the line: one high in the code page, such as
// the u with two dots, fits into the beginning of a line only.
TEST(Languages, CanBeCoded) {
  for (const std::string& language : Languages()) {
    const std::string coded = CodeLanguage(Source(language));
    std::vector<std::string> texts = {""};
    for (const std::string_view line : Lines(coded)) {
      texts.push_back(FromWindows1252(GetDeCodedString(line)));
    }
    texts.pop_back();
    EXPECT_EQ(texts, Texts(language)) << language;
  }
}

// The version is read from where this text is shown: a digit would be taken for one.
TEST(Languages, SayWithoutADigitThatTheVersionIsNotKnown) {
  ForEachText(
      [](const std::string&, const std::string& text) {
        EXPECT_EQ(text.find_first_of("0123456789"), text.npos);
      },
      {73});
}

TEST(Languages, HaveAKeyEachForExitAndRestore) {
  for (const std::string& language : Languages()) {
    const std::vector<std::string> texts = Texts(language);
    std::set<char> keys;
    for (const std::size_t id : {103U, 104U}) {
      const std::size_t mark = texts.at(id).find('&');
      ASSERT_LT(mark + 1, texts[id].size()) << language << ", text " << id;
      keys.insert(texts[id][mark + 1]);
    }
    EXPECT_EQ(keys.size(), 2U) << language;
    EXPECT_EQ(Count(Source(language), "&"), 2U) << language;
  }
}

// In characters; English needs 13 and 38.
TEST(Languages, FitIntoThePageListAndThePages) {
  const auto fits = [](std::size_t length) {
    return [length](const std::string&, const std::string& text) {
      EXPECT_LE(CharacterCount(text), length);
    };
  };
  ForEachText(fits(18), {3, 4, 5, 6, 7, 42, 115, 120, 142, 146, 151, 153, 154, 186});
  ForEachText(fits(40),
              {20, 21, 22, 23, 24, 25, 26, 27, 28, 34, 45, 46, 76, 98, 150, 152, 160, 161, 162});
}

// French sets a space before a colon, and so do the English labels; elsewhere it is a mistake.
TEST(Languages, SetAColonAsTheLanguageDoes) {
  for (const std::string& language : Languages()) {
    const bool apart = language == "Français";
    if (language == "English") continue;
    std::size_t colons = 0;
    for (const std::string& text : Texts(language)) {
      if (!text.ends_with(':')) continue;
      ++colons;
      EXPECT_EQ(text.ends_with(" :"), apart) << language << ": " << text;
    }
    EXPECT_GE(colons, 20U) << language;
  }
}

// These sentences pass through the abbreviations that a new user starts with, which are English: a
// word such as the Dutch "u" would be read as English "you".
TEST(Languages, AreLeftAloneByTheStarterAbbreviations) {
  const std::string table = Content("Abbreviations.Txt");
  ASSERT_FALSE(table.empty());
  ForEachText(
      [&](const std::string&, const std::string& text) {
        const std::string sentence = "Anna " + text + " Anna";
        for (const std::string_view row : Lines(table)) {
          if (IsBlank(row)) continue;
          EXPECT_EQ(sentence.find(row.substr(0, row.find('='))), sentence.npos) << row;
        }
      },
      {9, 29, 30, 31, 32, 33, 52, 54, 55, 56, 57, 58, 59, 60, 61, 78, 81, 82, 174});
}

// French denies its verb twice ("Personne n'est en ligne"), which a word joined to "est en ligne."
// cannot do, so it counts instead.
TEST(Languages, SayThatNobodyIsOnline) {
  const std::map<std::string, std::string> sentences = {
      {"Deutsch", "Niemand ist online."},     {"English", "Nobody is online."},
      {"Español", "Nadie está en línea."},    {"Français", "Zéro contact est en ligne."},
      {"Italiano", "Nessuno è online."},      {"Nederlands", "Niemand is online."},
      {"Português", "Ninguém está em linha."}};
  for (const auto& [language, sentence] : sentences) {
    const std::vector<std::string> texts = Texts(language);
    EXPECT_EQ(texts.at(171) + " " + texts.at(30), sentence);
  }
}

}  // namespace
}  // namespace brenwick

// The order and the descriptions of eSpeak NG's voices.
#include "espeak/EspeakVoices.h"

#include <gtest/gtest.h>

namespace brenwick {
namespace {

const std::vector<EspeakLanguage> kLanguages = {
    {"Afrikaans", "gmw/af", {{5, "af"}}},
    {"Welsh", "cel/cy", {{5, "cy"}}},
    {"German", "gmw/de", {{5, "de"}}},
    {"English (Caribbean)", "gmw/en-029", {{5, "en-029"}, {10, "en"}}},
    {"English (Great Britain)", "gmw/en", {{2, "en-gb"}, {2, "en"}}},
    {"English (America)", "gmw/en-US", {{2, "en-us"}, {3, "en"}}},
    {"French (Switzerland)", "roa/fr-CH", {{5, "fr-ch"}, {8, "fr"}}},
    {"French (France)", "roa/fr", {{5, "fr-fr"}, {5, "fr"}}},
};

std::vector<std::string> Identifiers(const std::string& locale) {
  std::vector<std::string> identifiers;
  for (const EspeakVoiceEntry& voice : ArrangedVoices(kLanguages, locale)) {
    identifiers.push_back(voice.identifier);
  }
  return identifiers;
}

std::string First(const std::string& locale) { return Identifiers(locale).front(); }

TEST(EspeakVoices, DescribesAMaleAndAFemaleVoiceForEachLanguage) {
  const std::vector<EspeakVoiceEntry> voices = ArrangedVoices(kLanguages, "en_GB.UTF-8");
  ASSERT_EQ(voices.size(), 2 * kLanguages.size());
  EXPECT_EQ(voices[0].description, "English (Great Britain), male: eSpeak NG");
  EXPECT_EQ(voices[0].identifier, "gmw/en");
  EXPECT_EQ(voices[1].description, "English (Great Britain), female: eSpeak NG");
  EXPECT_EQ(voices[1].identifier, "gmw/en+f2");
}

TEST(EspeakVoices, PutsTheUsersLanguageFirstAndTheOthersByName) {
  const std::vector<std::string> expected = {
      "roa/fr-CH", "roa/fr-CH+f2", "roa/fr",     "roa/fr+f2",     "gmw/af", "gmw/af+f2",
      "gmw/en-US", "gmw/en-US+f2", "gmw/en-029", "gmw/en-029+f2", "gmw/en", "gmw/en+f2",
      "gmw/de",    "gmw/de+f2",    "cel/cy",     "cel/cy+f2"};
  EXPECT_EQ(Identifiers("fr_CH.UTF-8"), expected);
}

TEST(EspeakVoices, FindsTheVoiceOfTheUsersRegion) {
  EXPECT_EQ(First("en_GB"), "gmw/en");
  EXPECT_EQ(First("en_US.UTF-8"), "gmw/en-US");
  EXPECT_EQ(First("fr_FR@euro"), "roa/fr");
  EXPECT_EQ(First("de_AT.UTF-8"), "gmw/de");
  EXPECT_EQ(First("en_AU.UTF-8"), "gmw/en");
}

TEST(EspeakVoices, SpeaksEnglishWhereThereIsNoLocale) {
  for (const char* locale : {"", "C", "POSIX", "C.UTF-8"}) EXPECT_EQ(First(locale), "gmw/en");
}

TEST(EspeakVoices, KeepsAListForALanguageItDoesNotHave) {
  EXPECT_EQ(First("tlh_XX"), "gmw/af");
  EXPECT_EQ(Identifiers("tlh_XX").size(), 2 * kLanguages.size());
}

TEST(EspeakVoices, UsesNoDescriptionTwice) {
  const auto voices = ArrangedVoices({{"Ido", "art/io", {}}, {"Ido", "art/io2", {}}}, "C");
  ASSERT_EQ(voices.size(), 2U);
  EXPECT_EQ(voices[0].identifier, "art/io");
}

TEST(EspeakVoices, PrefersTheFirstOfEachKind) {
  const VoicePair pair = PreferredVoices(ArrangedVoices(kLanguages, "de_DE.UTF-8"));
  EXPECT_EQ(pair.male, "German, male: eSpeak NG");
  EXPECT_EQ(pair.female, "German, female: eSpeak NG");
}

TEST(EspeakVoices, PrefersWhatThereIs) {
  const VoicePair pair = PreferredVoices(ArrangedVoices({{"Ido", "art/io", {}, true}}, "C"));
  EXPECT_EQ(pair.male, "");
  EXPECT_EQ(pair.female, "Ido, female: eSpeak NG");
}

TEST(EspeakVoices, TakesTheEnginesWordForAFemaleVoice) {
  const auto voices = ArrangedVoices({{"Ido", "art/io", {}, true}}, "C");
  ASSERT_EQ(voices.size(), 1U);
  EXPECT_TRUE(voices[0].female);
  EXPECT_EQ(voices[0].description, "Ido, female: eSpeak NG");
}

}  // namespace
}  // namespace brenwick

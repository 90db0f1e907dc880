// The order and the descriptions of an engine's voices.
#include "voice/EngineVoices.h"

#include <gtest/gtest.h>

namespace brenwick {
namespace {

const std::vector<EngineLanguage> kLanguages = {
    {"Afrikaans", "gmw/af", "af", {{5, "af"}}},
    {"Welsh", "cel/cy", "cy", {{5, "cy"}}},
    {"German", "gmw/de", "de", {{5, "de"}}},
    {"English (Caribbean)", "gmw/en-029", "en-029", {{5, "en-029"}, {10, "en"}}},
    {"English (Great Britain)", "gmw/en", "en", {{2, "en-gb"}, {2, "en"}}},
    {"English (America)", "gmw/en-US", "en-us", {{2, "en-us"}, {3, "en"}}},
    {"French (Switzerland)", "roa/fr-CH", "fr-ch", {{5, "fr-ch"}, {8, "fr"}}},
    {"French (France)", "roa/fr", "fr", {{5, "fr-fr"}, {5, "fr"}}},
};

// As an engine lists them that makes a female voice of a male one by "+f2".
std::vector<EngineVoice> VoicesFor(const std::string& locale,
                                   std::vector<EngineLanguage> languages) {
  for (EngineLanguage& language : languages) language.female_variant = "+f2";
  return EngineVoicesFor(locale, "eSpeak NG", std::move(languages));
}

std::vector<std::string> Identifiers(const std::string& locale) {
  std::vector<std::string> identifiers;
  for (const EngineVoice& voice : VoicesFor(locale, kLanguages)) {
    identifiers.push_back(voice.identifier);
  }
  return identifiers;
}

std::string First(const std::string& locale) { return Identifiers(locale).front(); }

TEST(EngineVoices, DescribesAMaleAndAFemaleVoiceForEachLanguage) {
  const std::vector<EngineVoice> voices = VoicesFor("en_GB.UTF-8", kLanguages);
  ASSERT_EQ(voices.size(), 2 * kLanguages.size());
  EXPECT_EQ(voices[0].description, "English (Great Britain), male: eSpeak NG");
  EXPECT_EQ(voices[0].identifier, "gmw/en");
  EXPECT_EQ(voices[1].description, "English (Great Britain), female: eSpeak NG");
  EXPECT_EQ(voices[1].identifier, "gmw/en+f2");
}

TEST(EngineVoices, PutsTheUsersLanguageFirstAndTheOthersByName) {
  const std::vector<std::string> expected = {
      "roa/fr-CH", "roa/fr-CH+f2", "roa/fr",     "roa/fr+f2",     "gmw/af", "gmw/af+f2",
      "gmw/en-US", "gmw/en-US+f2", "gmw/en-029", "gmw/en-029+f2", "gmw/en", "gmw/en+f2",
      "gmw/de",    "gmw/de+f2",    "cel/cy",     "cel/cy+f2"};
  EXPECT_EQ(Identifiers("fr_CH.UTF-8"), expected);
}

TEST(EngineVoices, FindsTheVoiceOfTheUsersRegion) {
  EXPECT_EQ(First("en_GB"), "gmw/en");
  EXPECT_EQ(First("en_US.UTF-8"), "gmw/en-US");
  EXPECT_EQ(First("fr_FR@euro"), "roa/fr");
  EXPECT_EQ(First("de_AT.UTF-8"), "gmw/de");
  EXPECT_EQ(First("en_AU.UTF-8"), "gmw/en");
}

TEST(EngineVoices, SpeaksEnglishWhereThereIsNoLocale) {
  for (const char* locale : {"", "C", "POSIX", "C.UTF-8"}) EXPECT_EQ(First(locale), "gmw/en");
}

TEST(EngineVoices, KeepsAListForALanguageItDoesNotHave) {
  EXPECT_EQ(First("tlh_XX"), "gmw/af");
  EXPECT_EQ(Identifiers("tlh_XX").size(), 2 * kLanguages.size());
}

TEST(EngineVoices, UsesNoDescriptionTwice) {
  const auto voices = VoicesFor("C", {{"Ido", "art/io", "io", {}}, {"Ido", "art/io2", "io2", {}}});
  ASSERT_EQ(voices.size(), 2U);
  EXPECT_EQ(voices[0].identifier, "art/io");
}

TEST(EngineVoices, KnowsTheLanguageOfEachVoice) {
  const std::vector<EngineVoice> voices = VoicesFor("fr_CH.UTF-8", kLanguages);
  EXPECT_EQ(voices[0].language, "fr-ch");
  EXPECT_EQ(voices[1].language, "fr-ch");
}

TEST(EngineVoices, ListsNoFemaleVoiceWhereTheEngineMakesNone) {
  const auto voices = EngineVoicesFor("C", "Festival", {{"Ido", "art/io", "io", {}}});
  ASSERT_EQ(voices.size(), 1U);
  EXPECT_EQ(voices[0].description, "Ido, male: Festival");
}

TEST(EngineVoices, PrefersTheFirstOfEachKind) {
  const VoicePair pair = PreferredVoices(VoicesFor("de_DE.UTF-8", kLanguages));
  EXPECT_EQ(pair.male, "German, male: eSpeak NG");
  EXPECT_EQ(pair.female, "German, female: eSpeak NG");
}

TEST(EngineVoices, PrefersWhatThereIs) {
  const VoicePair pair = PreferredVoices(VoicesFor("C", {{"Ido", "art/io", "io", {}, true}}));
  EXPECT_EQ(pair.male, "");
  EXPECT_EQ(pair.female, "Ido, female: eSpeak NG");
}

TEST(EngineVoices, TakesTheEnginesWordForAFemaleVoice) {
  const auto voices = VoicesFor("C", {{"Ido", "art/io", "io", {}, true}});
  ASSERT_EQ(voices.size(), 1U);
  EXPECT_TRUE(voices[0].female);
  EXPECT_EQ(voices[0].description, "Ido, female: eSpeak NG");
}

}  // namespace
}  // namespace brenwick

// Which of speech-dispatcher's voices a person is shown, and in which order.
#include "linux/speechd/SpeechdVoices.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <set>

namespace brenwick {
namespace {

using Listings = std::vector<SpeechdListing>;

// What speech-dispatcher's own engine does: each language times each variant.
Listings EspeakNg() {
  const std::pair<const char*, const char*> languages[] = {
      {"German", "de"}, {"English (Great Britain)", "en-GB"}, {"English (America)", "en-US"}};
  Listings listings;
  for (const auto& [name, tag] : languages) {
    listings.push_back({"espeak-ng", name, tag, "none"});
    for (const char* variant : {"Adam", "Whisper", "male3", "female3", "female2", "croak"}) {
      listings.push_back({"espeak-ng", std::string(name) + "+" + variant, tag, variant});
    }
  }
  return listings;
}

std::vector<SpeechdVoiceEntry> Shown(const Listings& listings, const std::string& locale) {
  return SpeechdVoicesFor(CondensedVoices(listings), locale);
}

std::vector<std::string> Descriptions(const Listings& listings, const std::string& locale) {
  std::vector<std::string> descriptions;
  for (const SpeechdVoiceEntry& voice : Shown(listings, locale)) {
    descriptions.push_back(voice.description);
  }
  return descriptions;
}

TEST(SpeechdVoices, ReadsALineOfTheList) {
  const SpeechdListing listing = ReadListing("piper", "Amy \xFF Low\ten-US\tlow");
  EXPECT_EQ(listing.module, "piper");
  EXPECT_EQ(listing.name, "Amy \xEF\xBF\xBD Low");
  EXPECT_EQ(listing.language, "en-US");
  EXPECT_EQ(listing.variant, "low");
  const SpeechdListing bare = ReadListing("piper", "Amy");
  EXPECT_EQ(bare.name + "|" + bare.language + "|" + bare.variant, "Amy||");
}

TEST(SpeechdVoices, HaveNoLineEndsWhateverTheServerSends) {
  const SpeechdListing listing = ReadListing("mod\tule\xFF", "A\x01my\ten\r\tlow\r");
  EXPECT_EQ(listing, (SpeechdListing{"mod ule\xEF\xBF\xBD", "A my", "en", "low"}));
}

TEST(SpeechdVoices, KeepsAFewVariantsOfEachVoice) {
  const std::vector<std::string> expected = {
      "German: espeak-ng, Speech Dispatcher",
      "German, female2: espeak-ng, Speech Dispatcher",
      "German, male3: espeak-ng, Speech Dispatcher",
      "German, female3: espeak-ng, Speech Dispatcher",
      "English (America): espeak-ng, Speech Dispatcher",
      "English (America), female2: espeak-ng, Speech Dispatcher",
      "English (America), male3: espeak-ng, Speech Dispatcher",
      "English (America), female3: espeak-ng, Speech Dispatcher",
      "English (Great Britain): espeak-ng, Speech Dispatcher",
      "English (Great Britain), female2: espeak-ng, Speech Dispatcher",
      "English (Great Britain), male3: espeak-ng, Speech Dispatcher",
      "English (Great Britain), female3: espeak-ng, Speech Dispatcher",
  };
  EXPECT_EQ(Descriptions(EspeakNg(), "de_AT.UTF-8"), expected);
}

TEST(SpeechdVoices, RemembersWhatTheServerCallsAVoice) {
  const auto voices = Shown(EspeakNg(), "en_US");
  EXPECT_EQ(voices[1].description, "English (America), female2: espeak-ng, Speech Dispatcher");
  EXPECT_EQ(voices[1].module, "espeak-ng");
  EXPECT_EQ(voices[1].name, "English (America)+female2");
  EXPECT_EQ(voices[1].language, "en-US");
}

TEST(SpeechdVoices, CallsAnotherEnginesLanguageByItsNameWhereItIsKnown) {
  Listings listings = EspeakNg();
  listings.push_back({"festival", "kal_diphone", "en-us", ""});
  listings.push_back({"festival", "Suomi", "fi", "none"});
  const std::vector<std::string> voices = Descriptions(listings, "en_US");
  EXPECT_EQ(voices[4], "English (America), kal_diphone: festival, Speech Dispatcher");
  EXPECT_EQ(voices.back(), "fi, Suomi: festival, Speech Dispatcher");
}

TEST(SpeechdVoices, TakesOtherVariantsWhereTheGoodOnesAreMissing) {
  const std::vector<std::string> expected = {
      "German: espeak-ng, Speech Dispatcher", "German, a: espeak-ng, Speech Dispatcher",
      "German, b: espeak-ng, Speech Dispatcher", "German, c: espeak-ng, Speech Dispatcher"};
  EXPECT_EQ(Descriptions({{"espeak-ng", "German+b", "de", "b"},
                          {"espeak-ng", "German+d", "de", "d"},
                          {"espeak-ng", "German+c", "de", "c"},
                          {"espeak-ng", "German", "de", "none"},
                          {"espeak-ng", "German+a", "de", "a"}},
                         "de"),
            expected);
}

TEST(SpeechdVoices, GivesEachEngineItsTurnInALanguageOfMany) {
  Listings listings;
  for (char letter = 'a'; letter <= 'z'; ++letter) {
    listings.push_back({"piper", std::string(1, letter), "en-US", "none"});
  }
  listings.push_back({"festival", "kal", "en-US", "none"});
  listings.push_back({"festival", "don", "en-US", "none"});
  const auto voices = Shown(listings, "en_US");
  EXPECT_EQ(voices.size(), kMostOfALanguage);
  const auto of_festival = std::count_if(
      voices.begin(), voices.end(), [](const auto& voice) { return voice.module == "festival"; });
  EXPECT_EQ(of_festival, 2);
  EXPECT_EQ(voices.back().name, "r");
}

TEST(SpeechdVoices, IsTheSameWhateverTheOrderOfTheList) {
  Listings listings = EspeakNg();
  listings.push_back({"festival", "kal_diphone", "en-US", "none"});
  const auto voices = Shown(listings, "en_US");
  std::reverse(listings.begin(), listings.end());
  EXPECT_EQ(Shown(listings, "en_US"), voices);
  EXPECT_EQ(voices.size(), 13U);
}

TEST(SpeechdVoices, CondensesNoFurther) {
  const Listings once = CondensedVoices(EspeakNg());
  EXPECT_EQ(once.size(), 12U);
  EXPECT_EQ(CondensedVoices(once), once);
}

TEST(SpeechdVoices, LeavesOutWhatHasNoNameOrTheSameDescription) {
  EXPECT_TRUE(Shown({{"festival", "", "en", "none"}}, "en").empty());
  const Listings twice = {{"festival", "kal", "en", "none"}, {"festival", "kal", "en", "x"}};
  EXPECT_EQ(Descriptions(twice, "en"),
            std::vector<std::string>{"en, kal: festival, Speech Dispatcher"});
}

}  // namespace
}  // namespace brenwick

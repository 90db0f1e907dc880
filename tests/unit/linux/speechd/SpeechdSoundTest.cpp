// A real engine behind speech-dispatcher is listed as a person can choose from it, and heard.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <map>

#include "support/PrivateSpeechd.h"
#include "support/Sound.h"
#include "support/SpeechdVoice.h"

namespace brenwick {
namespace {

constexpr const char* kFemale = "English (America), female2: espeak-ng, Speech Dispatcher";

class SpeechdSound : public testing::Test {
 protected:
  SpeechdSound() { server_.AskForVoices(); }

  // What the sound device has been given since it was asked last.
  Sound Heard() {
    const std::string bytes = BytesOf(server_.Inside("sound")).substr(heard_);
    heard_ += bytes.size();
    Sound sound;
    sound.samples.resize(bytes.size() / sizeof(std::int16_t));
    std::memcpy(sound.samples.data(), bytes.data(), sound.samples.size() * sizeof(std::int16_t));
    return sound;
  }

  PrivateSpeechd server_{PrivateSpeechd::Engines::kNotingAndReal};
  std::size_t heard_ = 0;
};

TEST_F(SpeechdSound, IsHeardAndSilencedAndHeardAgain) {
  SpeechdVoice voice(server_);
  voice.Choose(kFemale);
  voice.SayToTheEnd("The boat leaves at seven tomorrow morning.");
  const Sound sentence = Heard();
  EXPECT_GT(Rms(sentence), 300);
  for (int i = 0; i < 1000; ++i) voice.Speak("And then the boat went on.", SVSFlagsAsync);
  ASSERT_TRUE(Await([&] { return BytesOf(server_.Inside("sound")).size() > heard_; }));
  voice.Speak("", SVSFPurgeBeforeSpeak);
  ASSERT_TRUE(voice.WaitUntilSilent(std::chrono::minutes(1)));
  EXPECT_LT(Heard().samples.size(), 100 * sentence.samples.size());
  voice.SayToTheEnd("The boat leaves at seven tomorrow morning.");
  EXPECT_GT(Rms(Heard()), 300);
  EXPECT_TRUE(voice.Told().empty());
}

TEST_F(SpeechdSound, HasAFewVoicesOfEachLanguage) {
  SpeechdVoice voice(server_);
  std::map<std::string, std::size_t> languages;
  for (const SpeechdListing& listing :
       SpeechdVoiceCache({}, server_.Inside("state/voices"), {}).Voices()) {
    ++languages[listing.language];
  }
  EXPECT_GT(languages.size(), 100U);
  for (const auto& [language, count] : languages) EXPECT_LE(count, kMostOfALanguage) << language;
  const std::vector<std::string>& voices = voice.GetVoices();
  EXPECT_GT(voices.size(), 400U);
  EXPECT_LT(voices.size(), 800U);
  EXPECT_NE(std::find(voices.begin(), voices.end(), kFemale), voices.end());
}

}  // namespace
}  // namespace brenwick

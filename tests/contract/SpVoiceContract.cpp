#include "contract/SpVoiceContract.h"

#include <limits>
#include <set>
#include <vector>

#include "base/Failure.h"
#include "linux/engine/EngineProcess.h"
#include "rehearsal/ScriptedVoice.h"
#include "support/SpeakingToFile.h"
#include "support/SpeechdVoice.h"

namespace brenwick {
namespace {

// Its server is there for all voices of a test.
std::unique_ptr<SpVoice> MakeSpeechd() {
  static const PrivateSpeechd server;
  server.AskForVoices();
  return std::make_unique<SpeechdVoice>(server);
}

std::vector<SpVoiceImplementation> Implementations() {
  return {
      {"Espeak", [] { return std::make_unique<SpeakingToFile>(); }},
      {"EspeakProcess",
       [] {
         return std::make_unique<SpeakingToFile>(
             std::make_unique<EngineProcess>(EngineProcessOptions{.program = BRENWICK_VOICE}));
       }},
      {"Speechd", [] { return MakeSpeechd(); }},
      {"Scripted", [] { return std::make_unique<ScriptedVoice>(); }},
  };
}

template <typename Call>
void ExpectInvalidCall(const Call& call) {
  try {
    call();
    ADD_FAILURE() << "no failure";
  } catch (const Failure& failure) {
    EXPECT_EQ(failure.Number(), kInvalidCall);
  }
}

TEST_P(SpVoiceContract, ListsVoicesInTheSameOrderAtEachCallAndEachStart) {
  const std::vector<std::string> voices = voice_->GetVoices();
  EXPECT_FALSE(voices.empty());
  EXPECT_EQ(voice_->GetVoices(), voices);
  voice_.reset();
  voice_ = GetParam().make();
  EXPECT_EQ(voice_->GetVoices(), voices);
}

TEST_P(SpVoiceContract, DescribesEachVoiceInItsOwnWay) {
  const std::vector<std::string>& voices = voice_->GetVoices();
  EXPECT_EQ(std::set<std::string>(voices.begin(), voices.end()).size(), voices.size());
  for (const std::string& description : voices) EXPECT_NE(description, "");
}

TEST_P(SpVoiceContract, StartsWithTheFirstVoiceAtNormalRateAndFullVolume) {
  EXPECT_EQ(voice_->Voice(), 0U);
  EXPECT_EQ(voice_->Rate(), 0);
  EXPECT_EQ(voice_->Volume(), 100);
}

TEST_P(SpVoiceContract, TakesEveryVoiceOfItsList) {
  for (std::size_t i = 0; i < voice_->GetVoices().size(); ++i) {
    voice_->SetVoice(i);
    EXPECT_EQ(voice_->Voice(), i);
  }
}

TEST_P(SpVoiceContract, TakesEveryRateAndVolumeInRange) {
  for (int rate = -10; rate <= 10; ++rate) {
    voice_->SetRate(rate);
    EXPECT_EQ(voice_->Rate(), rate);
  }
  for (int volume = 0; volume <= 100; ++volume) {
    voice_->SetVolume(volume);
    EXPECT_EQ(voice_->Volume(), volume);
  }
}

TEST_P(SpVoiceContract, RefusesAVoiceOutsideTheListAndKeepsTheFormer) {
  const std::size_t last = voice_->GetVoices().size() - 1;
  voice_->SetVoice(last);
  ExpectInvalidCall([&] { voice_->SetVoice(last + 1); });
  ExpectInvalidCall([&] { voice_->SetVoice(std::numeric_limits<std::size_t>::max()); });
  EXPECT_EQ(voice_->Voice(), last);
}

TEST_P(SpVoiceContract, RefusesARateOutOfRangeAndKeepsTheFormer) {
  voice_->SetRate(4);
  for (const int rate : {-11, 11, 1000, std::numeric_limits<int>::min()}) {
    ExpectInvalidCall([&] { voice_->SetRate(rate); });
    EXPECT_EQ(voice_->Rate(), 4);
  }
}

TEST_P(SpVoiceContract, RefusesAVolumeOutOfRangeAndKeepsTheFormer) {
  voice_->SetVolume(70);
  for (const int volume : {-1, 101, 65536, std::numeric_limits<int>::min()}) {
    ExpectInvalidCall([&] { voice_->SetVolume(volume); });
    EXPECT_EQ(voice_->Volume(), 70);
  }
}

TEST_P(SpVoiceContract, TakesAnyText) {
  const std::string texts[] = {"",
                               " ",
                               "\n",
                               std::string("a\0b", 3),
                               "<b>&amp;&lt;&#1;",
                               "\x80\xFF\xC3",
                               "\x01"
                               "300S",
                               "[[",
                               "😀",
                               "עברית",
                               std::string(100'000, 'a'),
                               std::string(10'000, '9')};
  for (const std::string& text : texts) {
    for (int flags = 0; flags < 16; ++flags) EXPECT_NO_THROW(voice_->Speak(text, flags));
  }
}

TEST_P(SpVoiceContract, TakesAPurgeWithoutTextWhetherOrNotItSpeaks) {
  const int purge = SVSFlagsAsync + SVSFPurgeBeforeSpeak;
  EXPECT_NO_THROW(voice_->Speak("", purge));
  EXPECT_NO_THROW(voice_->Speak("Hello", SVSFlagsAsync));
  EXPECT_NO_THROW(voice_->Speak("", purge));
  EXPECT_NO_THROW(voice_->Speak("", purge));
}

TEST_P(SpVoiceContract, QueuesMoreThanAnyoneWillHear) {
  for (int i = 0; i < 1000; ++i) {
    ASSERT_NO_THROW(voice_->Speak("You have a new message.", SVSFlagsAsync)) << i;
  }
}

TEST_P(SpVoiceContract, KeepsItsValuesWhileItSpeaks) {
  const std::size_t last = voice_->GetVoices().size() - 1;
  voice_->SetVoice(last);
  voice_->SetRate(-3);
  voice_->SetVolume(60);
  voice_->Speak("Hello", SVSFlagsAsync);
  voice_->Speak("", SVSFlagsAsync + SVSFPurgeBeforeSpeak);
  EXPECT_EQ(voice_->Voice(), last);
  EXPECT_EQ(voice_->Rate(), -3);
  EXPECT_EQ(voice_->Volume(), 60);
}

INSTANTIATE_TEST_SUITE_P(Each, SpVoiceContract, testing::ValuesIn(Implementations()),
                         [](const auto& test) { return test.param.name; });

}  // namespace
}  // namespace brenwick

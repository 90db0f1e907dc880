// What eSpeak NG's voice sounds like, measured from the file it speaks into.
#include <gtest/gtest.h>
#include <sys/resource.h>

#include <algorithm>
#include <csignal>
#include <cstdlib>
#include <fstream>
#include <thread>

#include "base/Failure.h"
#include "rehearsal/voice/RealVoice.h"
#include "support/Sound.h"
#include "support/SpeakingToFile.h"

namespace brenwick {
namespace {

constexpr const char* kSentence =
    "The quick brown fox jumps over the lazy dog, and all are amazed.";
constexpr const char* kMale = "English (Great Britain), male: eSpeak NG";
constexpr const char* kFemale = "English (Great Britain), female: eSpeak NG";
constexpr int kPurge = SVSFlagsAsync + SVSFPurgeBeforeSpeak;

std::size_t IndexOf(SpVoice& voice, const std::string& description) {
  const auto& voices = voice.GetVoices();
  const auto found = std::find(voices.begin(), voices.end(), description);
  EXPECT_NE(found, voices.end()) << description;
  return static_cast<std::size_t>(found - voices.begin());
}

// Returns once some of what is being said stands in the file.
void AwaitSound(const SpeakingToFile& voice) {
  while (std::filesystem::file_size(voice.Folder() / "speech.wav") < 4096) {
    std::this_thread::yield();
  }
}

std::string LongText() {
  std::string text;
  for (int i = 0; i < 60; ++i) text += "This sentence is one of many, and all of them are long. ";
  return text;
}

TEST(EspeakVoice, CanBeHeard) {
  SpeakingToFile voice;
  const Sound sound = voice.Said(kSentence);
  EXPECT_GT(Rms(sound), 1000);
  EXPECT_GT(Seconds(sound), 2.5);
  EXPECT_LT(Seconds(sound), 6);
  EXPECT_TRUE(voice.HasSound());
}

TEST(EspeakVoice, SpeaksTwiceAsHighWhereTheDescriptionSaysFemale) {
  SpeakingToFile voice;
  voice.SetVoice(IndexOf(voice, kMale));
  const double male = FundamentalHz(voice.Said(kSentence));
  voice.SetVoice(IndexOf(voice, kFemale));
  const double female = FundamentalHz(voice.Said(kSentence));
  EXPECT_GT(male, 80);
  EXPECT_LT(male, 130);
  EXPECT_GT(female, 170);
  EXPECT_LT(female, 240);
}

TEST(EspeakVoice, SpeaksWithEveryVoiceOfItsList) {
  SpeakingToFile voice;
  voice.SetRate(10);
  for (std::size_t i = 0; i < voice.GetVoices().size(); ++i) {
    voice.SetVoice(i);
    EXPECT_GT(Rms(voice.Said("Hallo, ABC 1.")), 300) << voice.GetVoices()[i];
  }
}

TEST(EspeakVoice, SpeaksThreeTimesAsFastAndAThirdAsFast) {
  SpeakingToFile voice;
  const double normal = Seconds(Trimmed(voice.Said(kSentence)));
  voice.SetRate(10);
  EXPECT_NEAR(Seconds(Trimmed(voice.Said(kSentence))) / normal, 1 / 3.0, 0.04);
  voice.SetRate(-10);
  const Sound slow = voice.Said(kSentence);
  EXPECT_NEAR(Seconds(Trimmed(slow)) / normal, 3, 0.3);
  EXPECT_LT(FundamentalHz(slow), 130);
  EXPECT_GT(FundamentalHz(slow), 80);
}

TEST(EspeakVoice, SpeaksFasterAtEachHigherRate) {
  SpeakingToFile voice;
  double slower = 1000;
  for (int rate = -10; rate <= 10; ++rate) {
    voice.SetRate(rate);
    const double seconds = Seconds(Trimmed(voice.Said(kSentence)));
    EXPECT_LT(seconds, slower) << rate;
    slower = seconds;
  }
}

TEST(EspeakVoice, IsHalfAsLoudAtHalfTheVolumeAndSilentAtNone) {
  SpeakingToFile voice;
  const double full = Rms(voice.Said(kSentence));
  voice.SetVolume(50);
  EXPECT_NEAR(Rms(voice.Said(kSentence)) / full, 0.5, 0.05);
  voice.SetVolume(0);
  EXPECT_EQ(Rms(voice.Said(kSentence)), 0);
}

TEST(EspeakVoice, SpeaksAQueuedSentenceWithTheVoiceRateAndVolumeOfItsMoment) {
  SpeakingToFile voice;
  const std::size_t female = IndexOf(voice, kFemale);
  const double male_seconds = Seconds(voice.Said(kSentence));
  const double before = Seconds(voice.Recorded());
  voice.Speak(LongText(), SVSFlagsAsync);
  voice.Speak("", kPurge);
  const double start = Seconds(voice.Recorded());
  EXPECT_GE(start, before);
  voice.Speak(kSentence, SVSFlagsAsync);
  voice.SetVoice(female);
  voice.SetVolume(50);
  voice.Speak(kSentence, SVSFlagsAsync);
  voice.SetVoice(0);
  voice.SetRate(10);
  voice.SetVolume(0);
  const Sound all = voice.Recorded();
  const Sound first = Part(all, start, start + male_seconds);
  const Sound second = Part(all, start + male_seconds, 1000);
  EXPECT_LT(FundamentalHz(first), 130);
  EXPECT_GT(FundamentalHz(second), 170);
  EXPECT_NEAR(Seconds(second) / Seconds(first), 1, 0.1);
  EXPECT_LT(Rms(second), 0.75 * Rms(first));
  EXPECT_GT(Rms(second), 0.25 * Rms(first));
}

TEST(EspeakVoice, SpeaksAllSentencesOfALongQueue) {
  SpeakingToFile voice;
  voice.SetRate(10);
  const double one = Seconds(voice.Said("Hello."));
  const double before = Seconds(voice.Recorded());
  for (int i = 0; i < 1000; ++i) voice.Speak("Hello.", SVSFlagsAsync);
  EXPECT_NEAR((Seconds(voice.Recorded()) - before) / one, 1000, 50);
}

TEST(EspeakVoice, CutsOffWhatItSaysAndDropsTheQueueAtAPurge) {
  SpeakingToFile voice(WavFile::Pace::kAsHeard);
  for (int i = 0; i < 5; ++i) voice.Speak(LongText(), SVSFlagsAsync);
  AwaitSound(voice);
  voice.Speak("", kPurge);
  const Sound cut = voice.Recorded();
  EXPECT_GT(Rms(cut), 1000);
  EXPECT_LT(Seconds(cut), 60);
}

TEST(EspeakVoice, SpeaksWhatComesWithThePurge) {
  SpeakingToFile voice;
  voice.SetVoice(IndexOf(voice, kMale));
  voice.Speak(LongText(), SVSFlagsAsync);
  AwaitSound(voice);
  voice.SetVoice(IndexOf(voice, kFemale));
  voice.Speak(kSentence, kPurge);
  const Sound all = voice.Recorded();
  const double female_seconds = Seconds(voice.Said(kSentence));
  const Sound end = Part(all, Seconds(all) - 0.9 * female_seconds, 1000);
  EXPECT_GT(FundamentalHz(end), 170);
}

TEST(EspeakVoice, IsSilentWhenItIsCreatedAndAfterAPurgeOfNothing) {
  SpeakingToFile voice;
  EXPECT_EQ(voice.Recorded().samples.size(), 0U);
  voice.Speak("", kPurge);
  EXPECT_EQ(voice.Recorded().samples.size(), 0U);
}

TEST(EspeakVoice, EndsInTheMiddleOfASpeech) {
  const TemporaryFolder folder;
  {
    const auto voice = MakeRealVoice({"en_GB", folder.Inside("speech.wav"), true});
    for (int i = 0; i < 5; ++i) voice->Speak(LongText(), SVSFlagsAsync);
  }
  EXPECT_LT(Seconds(ReadWav(folder.Inside("speech.wav"))), 60);
}

TEST(EspeakVoice, RefusesToBeTheSecondOneAtATime) {
  SpeakingToFile voice;
  EXPECT_THROW(SpeakingToFile(), Failure);
  EXPECT_GT(Rms(voice.Said(kSentence)), 1000);
}

void ExpectRefusal(const std::filesystem::path& path, const std::string& reason) {
  try {
    const auto voice = MakeRealVoice({"en_GB", path});
    ADD_FAILURE() << path << " was written";
  } catch (const Failure& failure) {
    EXPECT_EQ(failure.Number(), kPathFileAccess);
    EXPECT_EQ(failure.Description(),
              "The sound file " + path.string() + " cannot be written: " + reason);
  }
}

TEST(EspeakVoice, NamesTheFileThatCannotBeWritten) {
  const TemporaryFolder folder;
  ExpectRefusal(folder.Inside("missing/speech.wav"), "No such file or directory");
  ExpectRefusal(folder.Path(), "Is a directory");
  ExpectRefusal("/dev/full", "No space left on device");
}

// For as long as it lives, no file of this process grows beyond this size.
class SmallDisk {
 public:
  explicit SmallDisk(rlim_t bytes) {
    getrlimit(RLIMIT_FSIZE, &former_);
    const rlimit small{bytes, former_.rlim_max};
    setrlimit(RLIMIT_FSIZE, &small);
  }
  ~SmallDisk() {
    setrlimit(RLIMIT_FSIZE, &former_);
    std::signal(SIGXFSZ, handler_);
  }
  SmallDisk(const SmallDisk&) = delete;
  SmallDisk& operator=(const SmallDisk&) = delete;

 private:
  rlimit former_{};
  void (*handler_)(int) = std::signal(SIGXFSZ, SIG_IGN);
};

TEST(EspeakVoice, TakesNoMoreSpeechOnceTheDiskIsFull) {
  SpeakingToFile voice;
  const SmallDisk disk(20'000);
  voice.Speak(kSentence, SVSFlagsAsync);
  ASSERT_TRUE(voice.WaitUntilSilent(std::chrono::seconds(60)));
  voice.Speak("The next sentence finds that the file has failed.", SVSFlagsAsync);
  ASSERT_TRUE(voice.WaitUntilSilent(std::chrono::seconds(60)));
  EXPECT_THROW(voice.Speak(kSentence, SVSFlagsAsync), Failure);
}

// ALSA reads its default device from the home folder.
class HomeWithSoundDevice {
 public:
  explicit HomeWithSoundDevice(const std::string& definition) {
    std::ofstream(folder_.Inside(".asoundrc")) << "pcm.!default { " << definition << " }\n";
    setenv("HOME", folder_.Path().c_str(), 1);
  }
  ~HomeWithSoundDevice() { setenv("HOME", former_.c_str(), 1); }
  HomeWithSoundDevice(const HomeWithSoundDevice&) = delete;
  HomeWithSoundDevice& operator=(const HomeWithSoundDevice&) = delete;

 private:
  TemporaryFolder folder_;
  std::string former_ = std::getenv("HOME") ? std::getenv("HOME") : "";
};

TEST(EspeakVoice, PlaysThroughTheDefaultSoundDevice) {
  const TemporaryFolder folder;
  const std::filesystem::path played = folder.Inside("played.raw");
  const HomeWithSoundDevice home("type file; slave.pcm null; format raw; file \"" +
                                 played.string() + "\"");
  {
    const auto voice = MakeRealVoice({"en_GB"});
    EXPECT_TRUE(voice->HasSound());
    voice->Speak("Hello.", SVSFlagsAsync);
    EXPECT_TRUE(voice->WaitUntilSilent(std::chrono::seconds(60)));
    voice->Speak(kSentence, SVSFlagsAsync);
    EXPECT_TRUE(voice->WaitUntilSilent(std::chrono::seconds(60)));
  }
  EXPECT_GT(std::filesystem::file_size(played), 2 * 22'050 * 2.5);
}

TEST(EspeakVoice, GoesOnWithoutASoundDevice) {
  const HomeWithSoundDevice home("type hw; card 31");
  const auto voice = MakeRealVoice({"en_GB"});
  EXPECT_FALSE(voice->HasSound());
  EXPECT_NO_THROW(voice->Speak(kSentence, SVSFlagsAsync));
  EXPECT_TRUE(voice->WaitUntilSilent(std::chrono::seconds(60)));
  EXPECT_FALSE(voice->HasSound());
}

}  // namespace
}  // namespace brenwick

// What an engine that lists no voices, or does not speak, means to a voice.
#include "voice/EngineBackend.h"

#include <gtest/gtest.h>

#include <chrono>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "voice/QueuedVoice.h"

namespace brenwick {
namespace {

constexpr std::chrono::minutes kSoon{1};

// What the engine was told, and how it is.
struct EngineNotes {
  std::vector<std::string> said;  // "voice: piece"
  std::string trouble;
};

class NotedEngine : public SpeechEngine {
 public:
  NotedEngine(EngineNotes& notes, std::vector<EngineVoice> voices)
      : notes_(notes), voices_(std::move(voices)) {}

  int SampleRate() const override { return 8'000; }
  std::vector<EngineVoice> Voices(const std::string& /*locale*/) override { return voices_; }
  void Use(const std::string& voice, int /*rate*/, int /*volume*/) override { voice_ = voice; }
  void Say(const std::string& piece, const Listener& /*listener*/) override {
    notes_.said.push_back(voice_ + ": " + piece);
  }
  std::string Trouble() const override { return notes_.trouble; }

 private:
  EngineNotes& notes_;
  const std::vector<EngineVoice> voices_;
  std::string voice_;
};

class OpenOutput : public SoundOutput {
 public:
  bool Ready() override { return true; }
  std::size_t Write(std::span<const std::int16_t> samples) override { return samples.size(); }
  void Cut() override {}
  std::chrono::milliseconds Finish() override { return {}; }
};

class EngineBackendTest : public testing::Test {
 protected:
  std::unique_ptr<EngineBackend> Make(std::vector<EngineVoice> voices) {
    return std::make_unique<EngineBackend>(
        std::make_unique<NotedEngine>(notes, std::move(voices)), std::make_unique<OpenOutput>(),
        EngineBackendOptions{.name = "Engine", .changed = [this] { ++changes; }});
  }

  const std::vector<EngineVoice> english = {{"English", "en", "en", false}};
  EngineNotes notes;
  int changes = 0;
};

TEST_F(EngineBackendTest, FailsWhileItsEngineDoesNotSpeak) {
  const auto backend = Make(english);
  const StopToken stop;
  const Connection well{"Engine", ConnectionState::Attached, ""};
  EXPECT_EQ(backend->State(), well);
  notes.trouble = "no data";
  const std::u32string sentence = U"Hello.";
  std::u32string_view text = sentence;
  EXPECT_FALSE(backend->Say(text, {}, stop));
  EXPECT_EQ(text, sentence) << "another backend is to say all of it";
  EXPECT_EQ(backend->State(), (Connection{"Engine", ConnectionState::Failed, "no data"}));
  EXPECT_EQ(changes, 1);
  EXPECT_FALSE(backend->Say(text, {}, stop));
  EXPECT_EQ(changes, 1);
  notes.trouble.clear();
  EXPECT_TRUE(backend->Say(text, {}, stop));
  EXPECT_EQ(text, U"");
  EXPECT_EQ(backend->State(), well);
  EXPECT_EQ(changes, 2);
}

TEST_F(EngineBackendTest, PrefersNoVoiceWhereItsEngineListsNone) {
  const VoicePair preferred = Make({})->Preferred();
  EXPECT_EQ(preferred.male, "");
  EXPECT_EQ(preferred.female, "");
}

TEST_F(EngineBackendTest, SpeaksWithTheUsualVoiceWhereItsEngineListsNone) {
  QueuedVoice::Backends backends;
  backends.push_back(Make({}));
  backends.push_back(Make(english));
  QueuedVoice voice(std::move(backends));
  EXPECT_TRUE(voice.LacksVoices());
  voice.Speak("Hello.", SVSFlagsAsync);
  ASSERT_TRUE(voice.WaitUntilSilent(kSoon));
  voice.SetVoice(0);
  voice.Speak("Hello.", SVSFlagsAsync);
  ASSERT_TRUE(voice.WaitUntilSilent(kSoon));
  EXPECT_EQ(notes.said, (std::vector<std::string>{": Hello.", "en: Hello."}));
}

TEST_F(EngineBackendTest, SpeaksWithItsFirstVoiceWhereNoneIsChosen) {
  QueuedVoice::Backends backends;
  backends.push_back(Make(english));
  QueuedVoice voice(std::move(backends));
  EXPECT_FALSE(voice.LacksVoices());
  voice.Speak("Hello.", SVSFlagsAsync);
  ASSERT_TRUE(voice.WaitUntilSilent(kSoon));
  EXPECT_EQ(notes.said, std::vector<std::string>{"en: Hello."});
}

}  // namespace
}  // namespace brenwick

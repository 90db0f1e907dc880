// A purge does not wait for the engine's process, and what comes behind it is said.
#include <gtest/gtest.h>

#include <atomic>
#include <csignal>
#include <fstream>
#include <random>
#include <thread>

#include "support/EngineVoiceParts.h"
#include "unit/linux/engine/RecordingEngine.h"
#include "voice/QueuedVoice.h"

namespace brenwick {
namespace {

constexpr int kPurge = SVSFlagsAsync + SVSFPurgeBeforeSpeak;
// A test that waits for its end has failed.
constexpr std::chrono::hours kEndlessPatience{1};

class EnginePurge : public testing::Test {
 protected:
  // One that goes on for so long that it is never over when it is cut.
  const std::string endless_ = [] {
    std::string text;
    for (int i = 0; i < 20'000; ++i) text += "And so on. ";
    return text;
  }();

  std::unique_ptr<QueuedVoice> Make(std::chrono::milliseconds patience) {
    return std::make_unique<QueuedVoice>(WithEngine(
        std::make_unique<WatchedEngine>(*this, patience), std::make_unique<Ear::Output>(ear_)));
  }

  // Speaks the endless text and returns the process that does, in the middle of it.
  pid_t SpeakEndlessly(QueuedVoice& voice) {
    const std::size_t before = ear_.Size();
    voice.Speak(endless_, SVSFlagsAsync);
    ear_.AwaitMoreThan(before);
    return process_;
  }

  void ExpectOnceAtTheEnd(const std::string& text) {
    int times = 0;
    for (const SaidText& said : record_.said) times += said.text == text ? 1 : 0;
    EXPECT_EQ(times, 1) << text;
    EXPECT_EQ(record_.said.back().text, text);
    EXPECT_EQ(record_.told, std::vector<std::string>{});
  }

  RecordingEngine::Record record_;
  Ear ear_;

 private:
  class WatchedEngine : public RecordingEngine {
   public:
    WatchedEngine(EnginePurge& test, std::chrono::milliseconds patience)
        : RecordingEngine(test.record_, patience), test_(test) {}

   private:
    void Heard(std::span<const std::int16_t> /*samples*/) override { test_.process_ = Process(); }

    EnginePurge& test_;
  };

  std::atomic<pid_t> process_ = 0;
};

// The letter that the system has for it: "T" when it is stopped.
char StateOf(pid_t process) {
  std::ifstream file("/proc/" + std::to_string(process) + "/stat");
  std::string id;
  std::string name;
  char state = '?';
  file >> id >> name >> state;
  return state;
}

void StopAndAwait(pid_t process) {
  ASSERT_EQ(kill(process, SIGSTOP), 0);
  while (StateOf(process) != 'T') std::this_thread::yield();
}

// The trembling of its voice makes no text longer or shorter than this.
void ExpectAsLongAs(const SaidText& said, const Samples& expected) {
  const auto size = static_cast<double>(expected.size());
  EXPECT_NEAR(static_cast<double>(said.samples.size()), size, 0.03 * size) << said.text;
}

TEST_F(EnginePurge, TakesTheNextSentenceWhileItsProcessIsStopped) {
  const std::string text = "The boat leaves at seven tomorrow morning.";
  const auto voice = Make(kEndlessPatience);
  const pid_t process = SpeakEndlessly(*voice);
  StopAndAwait(process);
  voice->Speak("This is cut before it begins.", kPurge);
  voice->Speak(text, kPurge);
  // Nobody would have let it go on but this test: nothing has waited for it.
  EXPECT_EQ(StateOf(process), 'T');
  ASSERT_EQ(kill(process, SIGCONT), 0);
  ASSERT_TRUE(voice->WaitUntilSilent(kLongEnough));
  ExpectOnceAtTheEnd(text);
  ASSERT_EQ(record_.said.back().by.size(), 1U);
  EXPECT_EQ(record_.said.back().by[0].process, process);
  ExpectAsLongAs(record_.said.back(), Reference("gmw/en", 0).Said(1, text));
}

TEST_F(EnginePurge, EndsWhileItsProcessIsStopped) {
  auto voice = Make(kEndlessPatience);
  const pid_t process = SpeakEndlessly(*voice);
  StopAndAwait(process);
  voice.reset();
  EXPECT_NE(kill(process, 0), 0);
}

TEST_F(EnginePurge, SaysTheNextSentenceWithANewProcessWhenTheOldOneStaysStopped) {
  const std::string text = "The boat leaves at seven tomorrow morning.";
  const auto voice = Make(EngineProcessOptions::kPatience);
  const pid_t process = SpeakEndlessly(*voice);
  StopAndAwait(process);
  voice->Speak(text, kPurge);
  ASSERT_TRUE(voice->WaitUntilSilent(kLongEnough));
  ExpectOnceAtTheEnd(text);
  EXPECT_NE(record_.said.back().by.back().process, process);
  Reference reference("gmw/en", 0);
  ExpectWhole(record_.said.back(), reference);
}

TEST_F(EnginePurge, SaysTheNextSentenceWheneverItsProcessIsKilled) {
  std::minstd_rand random(7);
  const auto voice = Make(EngineProcessOptions::kPatience);
  for (int i = 1; i < 40; ++i) {
    const std::string text = "Message " + std::to_string(100 + i) + ", which is not endless.";
    const pid_t process = SpeakEndlessly(*voice);
    const bool before = random() % 2 == 0;
    if (before) kill(process, SIGKILL);
    voice->Speak(text, kPurge);
    if (!before) kill(process, SIGKILL);
    ASSERT_TRUE(voice->WaitUntilSilent(kLongEnough));
    ExpectOnceAtTheEnd(text);
    ExpectAsLongAs(record_.said.back(), Reference("gmw/en", 0).Said(1, text));
  }
}

}  // namespace
}  // namespace brenwick

// What happens to the engine's process is not heard: sentences are spoken while it is killed,
// stopped and slowed down at random.
#include <gtest/gtest.h>

#include <csignal>
#include <random>

#include "support/EngineVoiceParts.h"
#include "unit/linux/engine/RecordingEngine.h"
#include "voice/QueuedVoice.h"

namespace brenwick {
namespace {

// The highest rate at which the engine needs no more time for a second of sound.
constexpr int kFast = 8;

// Harms its process before some texts and in the middle of others. Once in its life a process is
// killed or hangs; each harm lets the text get further than before, or it would rightly be left
// out.
class HarmedEngine : public RecordingEngine {
 public:
  struct Harm {
    int killed = 0;
    int hung = 0;
    int slowed = 0;
  };

  HarmedEngine(Record& record, Harm& harm)
      : RecordingEngine(record, EngineProcessOptions::kPatience), harm_(harm) {}

  void Say(const std::string& piece, const Listener& listener) override {
    if (Chance(30)) Kill();
    if (Chance(100)) Slow();
    RecordingEngine::Say(piece, listener);
  }

 private:
  bool Chance(unsigned in) { return random_() % in == 0; }

  void Heard(std::span<const std::int16_t> samples) override {
    if (samples.empty()) {
      if (waits_ > 0 && --waits_ == 0) kill(slowed_, SIGCONT);
    } else if (Chance(500)) {
      Kill();
    } else if (Chance(1'000)) {
      Slow();
    } else if (harm_.hung == 0 && Chance(2'000)) {
      Hang();
    }
  }

  bool IsHarmed() const { return Process() == 0 || Process() == harmed_; }

  void Kill() {
    if (IsHarmed()) return;
    waits_ = 0;
    harmed_ = Process();
    harm_.killed += kill(harmed_, SIGKILL) == 0 ? 1 : 0;
  }

  void Hang() {
    if (IsHarmed() || waits_ > 0) return;
    harmed_ = Process();
    harm_.hung += kill(harmed_, SIGSTOP) == 0 ? 1 : 0;
  }

  // Until the listener has been asked a few times whether it goes on waiting.
  void Slow() {
    if (IsHarmed() || waits_ > 0) return;
    slowed_ = Process();
    waits_ = 1 + static_cast<int>(random_() % 3);
    harm_.slowed += kill(slowed_, SIGSTOP) == 0 ? 1 : 0;
  }

  Harm& harm_;
  std::minstd_rand random_{20261122};
  pid_t harmed_ = 0;
  pid_t slowed_ = 0;
  int waits_ = 0;
};

std::string Sentence(int number) {
  std::string text = "Message " + std::to_string(number) + ".";
  if (number % 40 != 0) return text;
  // More sound than the socket holds, so that some of it is always still to be made.
  for (int i = 0; i < 3; ++i) text += " The boat leaves at seven, and nobody has packed a thing.";
  return text;
}

TEST(EngineChaos, SaysEachSentenceOnceWhateverHappensToItsProcess) {
  constexpr int kSentences = 1000;
  Ear ear;
  RecordingEngine::Record record;
  HarmedEngine::Harm harm;
  {
    QueuedVoice voice(WithEngine(std::make_unique<HarmedEngine>(record, harm),
                                 std::make_unique<Ear::Output>(ear)));
    voice.SetRate(kFast);
    for (int i = 0; i < kSentences; ++i) voice.Speak(Sentence(i), SVSFlagsAsync);
    ASSERT_TRUE(voice.WaitUntilSilent(kLongEnough));
  }
  EXPECT_EQ(record.told, std::vector<std::string>{});
  ASSERT_EQ(record.said.size(), static_cast<std::size_t>(kSentences));
  Reference reference("gmw/en", kFast);
  Samples all;
  int taken_over = 0;
  for (int i = 0; i < kSentences; ++i) {
    const SaidText& said = record.said[static_cast<std::size_t>(i)];
    ASSERT_EQ(said.text, Sentence(i));
    ExpectWhole(said, reference);
    all.insert(all.end(), said.samples.begin(), said.samples.end());
    taken_over += said.by.size() > 1 ? 1 : 0;
  }
  EXPECT_TRUE(ear.All() == all);
  EXPECT_GT(harm.killed, 30);
  EXPECT_EQ(harm.hung, 1);
  EXPECT_GT(harm.slowed, 5);
  EXPECT_GT(taken_over, 5);
}

}  // namespace
}  // namespace brenwick

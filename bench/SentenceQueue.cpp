// The memory of 100,000 sentences that wait to be said, and what is left of it when they have been.
#include <benchmark/benchmark.h>
#include <malloc.h>

#include <atomic>
#include <chrono>
#include <string>
#include <vector>

#include "voice/SpeechQueue.h"

namespace brenwick {
namespace {

constexpr int kSentences = 100'000;
constexpr std::chrono::minutes kLongEnough{5};

// Says its first sentence for as long as it is held, and every other one at once.
class Holder : public SpeechBackend {
 public:
  const std::vector<std::string>& Voices() const override { return voices_; }
  std::string Language(std::size_t /*voice*/) const override { return "en"; }
  std::size_t VoiceFor(const std::string& /*language*/) const override { return 0; }
  Connection State() const override { return {}; }
  bool Say(std::u32string_view& /*text*/, const Prosody& /*prosody*/,
           const StopToken& stop) override {
    while (held && !stop.Await(std::chrono::milliseconds(1))) {
    }
    return true;
  }
  void Cut() override {}
  std::chrono::milliseconds Finish() override { return {}; }

  std::atomic<bool> held = true;

 private:
  const std::vector<std::string> voices_ = {};
};

double MiB() {
  const struct mallinfo2 memory = mallinfo2();
  return static_cast<double>(memory.uordblks + memory.hblkhd) / (1 << 20);
}

void WaitingSentences(benchmark::State& state) {
  const std::string text =
      "Anna says: The boat leaves at seven tomorrow morning, and nobody has packed anything yet.";
  for (auto _ : state) {
    Holder holder;
    SpeechQueue queue({&holder});
    const double before = MiB();
    for (int i = 0; i < kSentences; ++i) queue.Add({.text = text, .backend = &holder});
    state.counters["MiB waiting"] = MiB() - before;
    holder.held = false;
    if (!queue.WaitUntilSilent(kLongEnough)) state.SkipWithError("it does not fall silent");
    state.counters["MiB said"] = MiB() - before;
  }
}

BENCHMARK(WaitingSentences)->Iterations(1)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace brenwick

BENCHMARK_MAIN();

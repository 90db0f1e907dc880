// From the messenger's event to the engine's first samples, beside a bare call of the engine with
// the same text in the same run: with the engine in this process and in one of its own, without and
// with the debug log. The counter "ratio" is what Brenwick adds.
#include <benchmark/benchmark.h>
#include <espeak-ng/speak_lib.h>

#include <chrono>
#include <condition_variable>
#include <mutex>

#include "Stage.h"
#include "espeak/EspeakEngine.h"
#include "linux/engine/EngineProcess.h"
#include "voice/EngineBackend.h"
#include "voice/QueuedVoice.h"

namespace brenwick {
namespace {

using Clock = std::chrono::steady_clock;
using Seconds = std::chrono::duration<double>;

const std::string kText = "the boat leaves at seven tomorrow morning";

// The moment of the first samples since Begin.
class Watch {
 public:
  void Begin() {
    const std::lock_guard lock(mutex_);
    seen_ = false;
  }
  void Samples() {
    const std::lock_guard lock(mutex_);
    if (seen_) return;
    moment_ = Clock::now();
    seen_ = true;
    arrived_.notify_all();
  }
  Clock::time_point Await() {
    std::unique_lock lock(mutex_);
    arrived_.wait(lock, [this] { return seen_; });
    return moment_;
  }

 private:
  std::mutex mutex_;
  std::condition_variable arrived_;
  bool seen_ = false;
  Clock::time_point moment_;
};

Watch watch;

class WatchedOutput : public SoundOutput {
 public:
  bool Ready() override { return true; }
  std::size_t Write(std::span<const std::int16_t> samples) override {
    watch.Samples();
    return samples.size();
  }
  void Cut() override {}
  std::chrono::milliseconds Finish() override { return {}; }
};

double bare_seconds = 0;

int Callback(short*, int count, espeak_EVENT*) {
  if (count > 0) watch.Samples();
  return 0;
}

void BareEngine(benchmark::State& state) {
  const std::string text = "Anna says " + kText;
  espeak_Initialize(AUDIO_OUTPUT_SYNCHRONOUS, 0, nullptr, 0);
  espeak_SetSynthCallback(Callback);
  espeak_SetVoiceByName("en-gb+f2");
  double total = 0;
  for (auto _ : state) {
    watch.Begin();
    const auto start = Clock::now();
    espeak_Synth(text.c_str(), text.size() + 1, 0, POS_CHARACTER, 0, espeakCHARS_UTF8, nullptr,
                 nullptr);
    const double seconds = Seconds(watch.Await() - start).count();
    state.SetIterationTime(seconds);
    total += seconds;
  }
  bare_seconds = total / static_cast<double>(state.iterations());
}

std::unique_ptr<SpeechEngine> MakeEngine(bool process) {
  if (process)
    return std::make_unique<EngineProcess>(EngineProcessOptions{.program = BRENWICK_VOICE});
  return std::make_unique<EspeakEngine>();
}

void EventToFirstSamples(benchmark::State& state) {
  QueuedVoice::Backends backends;
  backends.push_back(std::make_unique<EngineBackend>(
      MakeEngine(state.range(0) == 1), std::make_unique<WatchedOutput>(),
      EngineBackendOptions{.name = kEspeakName, .locale = "en_GB.UTF-8"}));
  QueuedVoice voice(std::move(backends));
  Stage stage(voice);
  stage.Form().cmbVoiceFemale.SetListIndex(1);
  stage.Form().chkDebug.SetTicked(true);
  stage.Form().chkDebug.SetTicked(state.range(1) == 1);
  voice.WaitUntilSilent(std::chrono::minutes(1));
  double total = 0;
  for (auto _ : state) {
    watch.Begin();
    const auto start = Clock::now();
    stage.Messenger().OnTextReceived({"anna@example.org", "Anna"}, "", kText);
    const double seconds = Seconds(watch.Await() - start).count();
    state.SetIterationTime(seconds);
    total += seconds;
    voice.WaitUntilSilent(std::chrono::minutes(1));
  }
  state.counters["ratio"] = total / static_cast<double>(state.iterations()) / bare_seconds;
}

BENCHMARK(BareEngine)->UseManualTime()->Iterations(2000)->Unit(benchmark::kMicrosecond);
BENCHMARK(EventToFirstSamples)
    ->ArgNames({"process", "log"})
    ->ArgsProduct({{0, 1}, {0, 1}})
    ->UseManualTime()
    ->Iterations(2000)
    ->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace brenwick

BENCHMARK_MAIN();

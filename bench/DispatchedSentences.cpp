// From the messenger's event to the end of the sentence that speech-dispatcher says, beside the
// same text handed to it directly. The counter "ratio" of the last line is what Brenwick adds.
//
// The server is the one at $SPEECHD_ADDRESS or of the session; one whose engine is quick shows
// most.
#include <benchmark/benchmark.h>

#include <filesystem>
#include <future>

#include "Stage.h"
#include "espeak/EspeakEngine.h"
#include "linux/sound/SoundDevice.h"
#include "linux/speechd/SpeechdBackend.h"
#include "voice/EngineBackend.h"
#include "voice/QueuedVoice.h"

namespace brenwick {
namespace {

using Clock = std::chrono::steady_clock;
using Seconds = std::chrono::duration<double>;

constexpr int kSentences = 500;
constexpr std::chrono::minutes kLongEnough{1};
const std::string kText = "the boat leaves at seven tomorrow morning";

double bare_seconds = 0;

void BareServer(benchmark::State& state) {
  SsipConnection server(SpeechdAddressOfSession());
  server.Ask("SET SELF NOTIFICATION ALL on", nullptr);
  double total = 0;
  for (auto _ : state) {
    const auto start = Clock::now();
    const std::string message = server.Say("Anna says " + kText, nullptr);
    while (server.Await(message, kLongEnough, nullptr) != SsipConnection::Event::End) {
    }
    const double seconds = Seconds(Clock::now() - start).count();
    state.SetIterationTime(seconds);
    total += seconds;
  }
  bare_seconds = total / static_cast<double>(state.iterations());
}

// Returns when the server's voices stand in the file.
void AskForVoices(const std::string& file) {
  std::promise<void> asked;
  SpeechdVoiceCache memory(SpeechdAddressOfSession(), file, [&](bool, bool) { asked.set_value(); });
  memory.Refresh();
  asked.get_future().wait();
}

void EventToEnd(benchmark::State& state) {
  const std::string file = std::filesystem::temp_directory_path() / "brenwick-bench-voices";
  AskForVoices(file);
  auto engine = std::make_unique<EspeakEngine>();
  auto output = std::make_unique<SoundDevice>(engine->SampleRate());
  QueuedVoice::Backends backends;
  backends.push_back(std::make_unique<EngineBackend>(
      std::move(engine), std::move(output),
      EngineBackendOptions{.name = kEspeakName, .locale = "en_US.UTF-8"}));
  backends.push_back(std::make_unique<SpeechdBackend>(SpeechdOptions{
      .address = SpeechdAddressOfSession(), .locale = "en_US.UTF-8", .memory = file}));
  QueuedVoice voice(std::move(backends));
  Stage stage(voice);
  const std::size_t last = voice.GetVoices().size() - 1;
  stage.Form().cmbVoiceFemale.SetListIndex(static_cast<int>(last));
  voice.WaitUntilSilent(kLongEnough);
  double total = 0;
  for (auto _ : state) {
    const auto start = Clock::now();
    stage.Messenger().OnTextReceived({"anna@example.org", "Anna"}, "", kText);
    voice.WaitUntilSilent(kLongEnough);
    const double seconds = Seconds(Clock::now() - start).count();
    state.SetIterationTime(seconds);
    total += seconds;
  }
  state.counters["ratio"] = total / static_cast<double>(state.iterations()) / bare_seconds;
  state.SetLabel(voice.GetVoices()[last]);
  if (voice.Engines()[1].State != ConnectionState::Attached)
    state.SkipWithError("it does not work");
  std::filesystem::remove(file);
}

BENCHMARK(BareServer)->UseManualTime()->Iterations(kSentences)->Unit(benchmark::kMicrosecond);
BENCHMARK(EventToEnd)->UseManualTime()->Iterations(kSentences)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace brenwick

BENCHMARK_MAIN();

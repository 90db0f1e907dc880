// What a message costs from the messenger's event to SpVoice::Speak, with an engine that does
// nothing: time and allocations, with the debug log on and off.
#include <benchmark/benchmark.h>

#include <cstdlib>
#include <new>

#include "Stage.h"

namespace {

std::size_t allocations = 0;

}  // namespace

// GCC does not see that these replace each other's counterparts.
#if defined(__GNUC__) && !defined(__clang__)
#pragma GCC diagnostic ignored "-Wmismatched-new-delete"
#endif

void* operator new(std::size_t size) {
  ++allocations;
  void* memory = std::malloc(size == 0 ? 1 : size);
  if (memory == nullptr) throw std::bad_alloc();
  return memory;
}
void operator delete(void* memory) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t) noexcept { std::free(memory); }

namespace brenwick {
namespace {

void EventToSpeak(benchmark::State& state) {
  EmptyVoice voice;
  Stage stage(voice);
  const bool logged = state.range(0) == 1;
  stage.Form().chkDebug.SetTicked(true);
  stage.Form().chkDebug.SetTicked(logged);
  const MessengerContact anna{"anna@example.org", "AnnaBaker"};
  stage.Messenger().OnUserStateChanged(anna, MSTATE_ONLINE);
  const std::size_t before = allocations;
  for (auto _ : state) {
    stage.Messenger().OnTextReceived(anna, "", "hello Jane, brb in five minutes");
    // The list of spoken words grows without bound; it is not what is measured.
    if (stage.Form().lstMessages.ListCount() > 1000) stage.Form().lstMessages.Clear();
  }
  state.counters["allocations"] = benchmark::Counter(static_cast<double>(allocations - before) /
                                                     static_cast<double>(state.iterations()));
  if (voice.spoken == 0) state.SkipWithError("nothing was spoken");
}
BENCHMARK(EventToSpeak)->ArgName("log")->Arg(0)->Arg(1)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace brenwick

BENCHMARK_MAIN();

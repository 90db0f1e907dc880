// Many contacts: their coming and going while each list shows, the start with them in the list, and
// what they weigh.
#include <benchmark/benchmark.h>

#include <fstream>
#include <string>

#include "People.h"
#include "Stage.h"

namespace brenwick {
namespace {

constexpr std::int64_t kContacts = 1'000;

void Log(Stage& stage, bool on) {
  stage.Form().chkDebug.SetTicked(!on);
  stage.Form().chkDebug.SetTicked(on);
}

// One state of each of 1,000 contacts, announced.
void StateChanges(benchmark::State& state) {
  EmptyVoice voice;
  Stage stage(voice, kContacts);
  Log(stage, false);
  stage.Form().lstMenu.SetListIndex(static_cast<int>(state.range(0)));
  std::int32_t next = MSTATE_ONLINE;
  for (auto _ : state) {
    for (std::int64_t contact = 1; contact <= kContacts; ++contact) {
      stage.Messenger().OnUserStateChanged({EmailOf(contact), "Contact"}, next);
    }
    next = next == MSTATE_ONLINE ? MSTATE_AWAY : MSTATE_ONLINE;
    stage.Form().lstMessages.Clear();
  }
  if (voice.spoken == 0) state.SkipWithError("nothing was spoken");
}
// General, Buddynames, Ignore, Gender: by their places in the page list.
BENCHMARK(StateChanges)
    ->ArgName("page")
    ->Arg(0)
    ->Arg(4)
    ->Arg(5)
    ->Arg(6)
    ->Unit(benchmark::kMillisecond);

void StartUp(benchmark::State& state) {
  EmptyVoice voice;
  Stage stage(voice, kContacts);
  for (auto _ : state) stage.Start();
  stage.Form().lstMenu.SetListIndex(kGenderPage);
  if (stage.Form().lstGender.ListCount() != kContacts) state.SkipWithError("contacts are missing");
}
BENCHMARK(StartUp)->Unit(benchmark::kMillisecond);

// Everybody's state in the tray menu, as each right click on the icon brings it up to date.
void TrayMenu(benchmark::State& state) {
  EmptyVoice voice;
  Stage stage(voice, state.range(0));
  Log(stage, false);
  for (auto _ : state) stage.ClickTray(kRightButtonUp);
  if (stage.Form().mnuBuddiesOnLine.Count() != state.range(0)) {
    state.SkipWithError("contacts are missing");
  }
}
BENCHMARK(TrayMenu)->Arg(1'000)->Arg(5'000)->Arg(32'767)->Unit(benchmark::kMillisecond);

double ResidentMegabytes() {
  std::ifstream file("/proc/self/statm");
  double size = 0;
  double resident = 0;
  file >> size >> resident;
  constexpr double kPagesInMegabyte = 256;
  return resident / kPagesInMegabyte;
}

// "added_mb": the started program with the longest list there can be, all three pages filled.
void Memory(benchmark::State& state) {
  for (auto _ : state) {
    const double before = ResidentMegabytes();
    EmptyVoice voice;
    Stage stage(voice, state.range(0));
    for (const int page : {4, 5, 6}) stage.Form().lstMenu.SetListIndex(page);
    state.counters["added_mb"] = ResidentMegabytes() - before;
    if (stage.Form().lstGender.ListCount() != state.range(0)) {
      state.SkipWithError("contacts are missing");
    }
  }
}
BENCHMARK(Memory)->Arg(0)->Arg(32'767)->Iterations(1)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace brenwick

BENCHMARK_MAIN();

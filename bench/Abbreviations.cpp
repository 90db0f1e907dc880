// ReplaceEmoticons with tables of growing length, when the last row fits and when none does.
#include <benchmark/benchmark.h>

#include <string>

#include "Parts.h"
#include "speech/Abbreviations.h"

namespace brenwick {
namespace {

struct Table : Parts {
  explicit Table(std::int64_t rows) : Parts("table") {
    std::string content;
    for (std::int64_t i = 0; i < rows; ++i) {
      content += "(abbr" + std::to_string(i) + ")=replacement\r\n";
    }
    folders.Replace(data.Inside("Abbreviations.Txt"), content);
    texts.Replace(std::vector<std::string>(175, "text"));
    abbreviations.EmoticonRead(true);
  }

  Abbreviations abbreviations{log, texts, status, data, folders};
};

void Replace(benchmark::State& state, bool found) {
  Table table(state.range(0));
  const std::string last = "(abbr" + std::to_string(state.range(0) - 1) + ")";
  const std::string text =
      "Anna says I will bring the boat trailer " + (found ? last : std::string("tomorrow"));
  for (auto _ : state) {
    std::string sentence = text;
    table.abbreviations.ReplaceEmoticons(sentence);
    benchmark::DoNotOptimize(sentence);
  }
}

void LastRowFits(benchmark::State& state) { Replace(state, true); }
void NoRowFits(benchmark::State& state) { Replace(state, false); }
BENCHMARK(LastRowFits)->Arg(100)->Arg(1000)->Arg(10000)->Unit(benchmark::kMicrosecond);
BENCHMARK(NoRowFits)->Arg(100)->Arg(1000)->Arg(10000)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace brenwick

BENCHMARK_MAIN();

// Loading a language, from its file to the texts that the form looks up.
#include "language/Languages.h"

#include <benchmark/benchmark.h>

#include "Parts.h"
#include "pages/GeneralPage.h"

namespace brenwick {
namespace {

struct SpeechBackend : Parts {
  SpeechBackend() : Parts("languages") { languages.LanguageRead(); }

  LanguageLists lists{form};
  Languages languages{log,     lists,  texts,  status,
                      folders, screen, system, [] { return std::string(); }};
};

// Only the language that is chosen: its file is read, decoded and summed up.
void LoadLanguage(benchmark::State& state) {
  SpeechBackend speaker;
  for (auto _ : state) speaker.languages.ReadLanguage(true);
  if (speaker.texts.LoadText(1).empty()) state.SkipWithError("no text was loaded");
}
BENCHMARK(LoadLanguage)->Unit(benchmark::kMicrosecond);

// What the start does: the folder is listed as well.
void ListAndLoadLanguages(benchmark::State& state) {
  SpeechBackend speaker;
  for (auto _ : state) speaker.languages.LanguageRead();
  if (speaker.form.cmbLanguage.ListCount() == 0) state.SkipWithError("no language was listed");
}
BENCHMARK(ListAndLoadLanguages)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace brenwick

BENCHMARK_MAIN();

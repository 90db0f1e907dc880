// Loading a language, from its file to the texts that the form looks up.
#include "language/Languages.h"

#include <benchmark/benchmark.h>

#include "Stage.h"

namespace brenwick {
namespace {

// The parts of a program that a language needs.
struct Speaker {
  Speaker()
      : folder(std::filesystem::temp_directory_path() / "brenwick-bench-languages"),
        folders({folder.string(), BRENWICK_PROGRAM_FOLDER, ""}) {
    languages.LanguageRead();
  }
  ~Speaker() { std::filesystem::remove_all(folder); }

  std::filesystem::path folder;
  SilentTranscript transcript;
  ScriptedScreen screen{transcript};
  ScriptedLoop loop;
  ScriptedClock clock;
  ScriptedSystem system;
  PosixFolders folders;
  ProgramState state;
  frmMain form;
  cMousePointer pointer{screen};
  StatusWindow status{pointer, loop, system};
  DataFolder data{folders};
  LogFiles files{data, folders, clock};
  ErrorReport report{state, files, status, screen};
  Logs log{state, files, report};
  TextTable texts{log};
  Languages languages{
      log, form, texts, status, pointer, folders, screen, system, [] { return std::string(); }};
};

// Only the language that is chosen: its file is read, decoded and summed up.
void LoadLanguage(benchmark::State& state) {
  Speaker speaker;
  for (auto _ : state) speaker.languages.ReadLanguage(true);
  if (speaker.texts.LoadText(1).empty()) state.SkipWithError("no text was loaded");
}
BENCHMARK(LoadLanguage)->Unit(benchmark::kMicrosecond);

// What the start does: the folder is listed as well.
void ListAndLoadLanguages(benchmark::State& state) {
  Speaker speaker;
  for (auto _ : state) speaker.languages.LanguageRead();
  if (speaker.form.cmbLanguage.ListCount() == 0) state.SkipWithError("no language was listed");
}
BENCHMARK(ListAndLoadLanguages)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace brenwick

BENCHMARK_MAIN();

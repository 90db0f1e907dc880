#include "rehearsal/Rehearse.h"

#include <cerrno>
#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <memory>
#include <stdexcept>
#include <system_error>

#include "files/IniStore.h"
#include "rehearsal/Interruption.h"
#include "rehearsal/PlainText.h"
#include "rehearsal/ReadableTranscript.h"
#include "rehearsal/RehearsalFolders.h"
#include "rehearsal/ScratchFolder.h"
#include "rehearsal/voice/RealVoice.h"
#include "voice/EngineBackend.h"

namespace brenwick {
namespace {

namespace fs = std::filesystem;

std::string Environment(const char* name) {
  const char* value = std::getenv(name);
  return value != nullptr ? value : "";
}

// Of the installed program, or of the build.
std::string OwnProgramFolder() {
  std::error_code failed;
  const fs::path own = fs::read_symlink("/proc/self/exe", failed);
  const fs::path installed = own.parent_path().parent_path() / "share/brenwick";
  return fs::is_directory(installed / "Languages") ? installed.string() : BRENWICK_PROGRAM_FOLDER;
}

std::string ProgramFolder(const RehearsalOptions& options) {
  std::string folder = options.program.empty() ? OwnProgramFolder() : options.program;
  if (!fs::is_directory(folder)) throw std::runtime_error("there is no program folder " + folder);
  return folder;
}

std::unique_ptr<QueuedVoice> MakeEngine(const RehearsalOptions& options, std::ostream& errors) {
  if (!options.real_voice) return nullptr;
  auto engine = MakeRealVoice({Locale(), options.wav, options.realtime});
  if (!engine->HasSound()) errors << EngineBackend::kNoSound << '\n';
  return engine;
}

void WaitUntilSilent(QueuedVoice* engine) {
  constexpr std::chrono::milliseconds kSlice{100};
  constexpr int kSlices = 6000;
  if (engine == nullptr) return;
  for (int i = 0; i < kSlices && !Interrupted(); ++i) {
    if (engine->WaitUntilSilent(kSlice)) return;
  }
}

std::unique_ptr<Transcript> MakeTranscript(const RehearsalOptions& options, std::ostream& out,
                                           Clock& clock) {
  if (!options.readable) return std::make_unique<JsonTranscript>(out, options.realtime);
  const bool colour = &out == &std::cout && options.terminal && Environment("NO_COLOR").empty() &&
                      Environment("TERM") != "dumb";
  return std::make_unique<ReadableTranscript>(out, clock, colour);
}

std::ifstream OpenScript(const std::string& name) {
  std::ifstream script(name);
  const int error = errno;
  if (fs::is_directory(name)) throw std::runtime_error(name + " is a folder, not a script");
  if (!script) {
    throw std::runtime_error("cannot read " + name + ": " + std::generic_category().message(error));
  }
  return script;
}

}  // namespace

std::string Locale() {
  for (const char* name : {"LC_ALL", "LC_MESSAGES", "LANG"}) {
    if (std::string value = Environment(name); !value.empty()) return value;
  }
  return {};
}

ExitStatus Rehearse(const RehearsalOptions& options, std::ostream& transcript, std::ostream& errors,
                    Spectator* spectator) {
  std::ifstream file;
  if (options.script != "-") file = OpenScript(options.script);
  const std::string program = ProgramFolder(options);
  const ScratchFolder temporary;
  const std::string documents =
      options.documents.empty() ? (temporary.Path() / "documents").string() : options.documents;
  const std::string store_file =
      options.store.empty() ? (temporary.Path() / "store.ini").string() : options.store;

  ScriptedClock clock;
  ParseMoment("2004-01-10T12:00:00", clock.now);
  const auto written = MakeTranscript(options, transcript, clock);
  SameAtEveryRun renamed(*written, temporary.Path().string());
  RehearsalFolders folders({documents, program, program + "/brenwick"});
  IniStore store(store_file, clock, [&errors](const std::string& message) {
    errors << "brenwick-rehearse: " << PlainText(message) << '\n';
  });
  const auto engine = MakeEngine(options, errors);
  std::function<void(std::chrono::milliseconds)> pass;
  if (options.realtime) pass = SleepUnlessInterrupted;
  Rehearsal rehearsal({renamed, clock, folders, store, engine.get(), pass, spectator});
  const ExitStatus status = PlayScript(rehearsal, options.script == "-" ? std::cin : file,
                                       options.script, transcript, errors);
  WaitUntilSilent(engine.get());
  return status;
}

}  // namespace brenwick

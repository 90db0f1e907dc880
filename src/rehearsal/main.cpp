#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <memory>
#include <system_error>

#include "base/Failure.h"
#include "desktop/EspeakVoice.h"
#include "desktop/IniStore.h"
#include "rehearsal/Interruption.h"
#include "rehearsal/Options.h"
#include "rehearsal/PlainText.h"
#include "rehearsal/PlayScript.h"
#include "rehearsal/ReadableTranscript.h"
#include "rehearsal/RehearsalFolders.h"
#include "rehearsal/ScratchFolder.h"

namespace brenwick {
namespace {

namespace fs = std::filesystem;

std::string Environment(const char* name) {
  const char* value = std::getenv(name);
  return value != nullptr ? value : "";
}

std::string Locale() {
  for (const char* name : {"LC_ALL", "LC_MESSAGES", "LANG"}) {
    if (std::string value = Environment(name); !value.empty()) return value;
  }
  return {};
}

void Tell(const std::string& message) {
  std::cerr << "brenwick-rehearse: " << PlainText(message) << '\n';
}

std::string ProgramFolder(const RehearsalOptions& options) {
  std::string folder = options.program.empty() ? BRENWICK_PROGRAM_FOLDER : options.program;
  if (!fs::is_directory(folder)) throw std::runtime_error("there is no program folder " + folder);
  return folder;
}

std::unique_ptr<EspeakVoice> MakeEngine(const RehearsalOptions& options) {
  if (!options.real_voice) return nullptr;
  auto engine =
      std::make_unique<EspeakVoice>(EspeakOptions{Locale(), options.wav, options.realtime});
  if (!engine->HasSound()) std::cerr << EspeakVoice::kNoSound << '\n';
  return engine;
}

void WaitUntilSilent(EspeakVoice* engine) {
  constexpr std::chrono::milliseconds kSlice{100};
  constexpr int kSlices = 6000;
  if (engine == nullptr) return;
  for (int i = 0; i < kSlices && !Interrupted(); ++i) {
    if (engine->WaitUntilSilent(kSlice)) return;
  }
}

std::unique_ptr<Transcript> MakeTranscript(const RehearsalOptions& options, Clock& clock) {
  if (!options.readable) return std::make_unique<JsonTranscript>(std::cout, options.realtime);
  const bool colour = isatty(STDOUT_FILENO) == 1 && Environment("NO_COLOR").empty() &&
                      Environment("TERM") != "dumb";
  return std::make_unique<ReadableTranscript>(std::cout, clock, colour);
}

ExitStatus Rehearse(const RehearsalOptions& options, std::istream& script) {
  const std::string program = ProgramFolder(options);
  NoteInterruptions();
  const ScratchFolder temporary;
  const std::string documents =
      options.documents.empty() ? (temporary.Path() / "documents").string() : options.documents;
  const std::string store_file =
      options.store.empty() ? (temporary.Path() / "store.ini").string() : options.store;

  ScriptedClock clock;
  ParseMoment("2004-01-10T12:00:00", clock.now);
  const auto written = MakeTranscript(options, clock);
  SameAtEveryRun transcript(*written, temporary.Path().string());
  RehearsalFolders folders({documents, program, program + "/brenwick"});
  IniStore store(store_file, clock, Tell);
  const auto engine = MakeEngine(options);
  std::function<void(std::chrono::milliseconds)> pass;
  if (options.realtime) pass = SleepUnlessInterrupted;
  Rehearsal rehearsal({transcript, clock, folders, store, engine.get(), pass});
  const ExitStatus status = PlayScript(rehearsal, script, options.script, std::cout, std::cerr);
  WaitUntilSilent(engine.get());
  return status;
}

ExitStatus RehearseFile(const RehearsalOptions& options) {
  std::ifstream script(options.script);
  const int error = errno;
  if (fs::is_directory(options.script)) {
    throw std::runtime_error(options.script + " is a folder, not a script");
  }
  if (!script) {
    throw std::runtime_error("cannot read " + options.script + ": " +
                             std::generic_category().message(error));
  }
  return Rehearse(options, script);
}

ExitStatus Main(const std::vector<std::string>& arguments) {
  const RehearsalOptions options = ParseOptions(arguments);
  if (options.help) {
    std::cout << kRehearsalHelp;
    return kDone;
  }
  if (options.version) {
    std::cout << "brenwick-rehearse " << ProgramVersion{}.Plain() << '\n';
    return kDone;
  }
  if (options.sound_device) {
    return EspeakVoice(EspeakOptions{Locale()}).HasSound() ? kDone : kMissing;
  }
  return options.script == "-" ? Rehearse(options, std::cin) : RehearseFile(options);
}

}  // namespace
}  // namespace brenwick

int main(int count, char** values) {
  int status = brenwick::kMissing;
  try {
    status = brenwick::Main({values + 1, values + count});
  } catch (const brenwick::OptionFailure& failure) {
    brenwick::Tell(failure.what());
    std::cerr << "try brenwick-rehearse --help\n";
    status = brenwick::kWrong;
  } catch (const std::exception& failure) {
    brenwick::Tell(failure.what());
  }
  brenwick::EndAsInterrupted();
  return status;
}

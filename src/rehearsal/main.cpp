#include <unistd.h>

#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <memory>
#include <thread>

#include "base/Failure.h"
#include "desktop/EspeakVoice.h"
#include "desktop/IniStore.h"
#include "desktop/PosixFolders.h"
#include "rehearsal/Options.h"
#include "rehearsal/ReadableTranscript.h"
#include "rehearsal/Rehearsal.h"

namespace brenwick {
namespace {

namespace fs = std::filesystem;

// A folder of its own that goes away at the end.
class TemporaryFolder {
 public:
  TemporaryFolder() {
    std::string pattern = (fs::temp_directory_path() / "brenwick-rehearsal-XXXXXX").string();
    if (mkdtemp(pattern.data()) == nullptr) throw Failure(kPathFileAccess);
    path_ = pattern;
  }
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;
  ~TemporaryFolder() {
    std::error_code ignored;
    fs::remove_all(path_, ignored);
  }

  const fs::path& Path() const { return path_; }

 private:
  fs::path path_;
};

std::string Locale() {
  for (const char* name : {"LC_ALL", "LC_MESSAGES", "LANG"}) {
    const char* value = std::getenv(name);
    if (value != nullptr && *value != '\0') return value;
  }
  return {};
}

std::unique_ptr<EspeakVoice> MakeEngine(const RehearsalOptions& options) {
  if (!options.real_voice) return nullptr;
  auto engine =
      std::make_unique<EspeakVoice>(EspeakOptions{Locale(), options.wav, options.realtime});
  if (!engine->HasSound()) std::cerr << EspeakVoice::kNoSound << '\n';
  return engine;
}

int PlayScript(Rehearsal& rehearsal, std::istream& script, const std::string& name) {
  std::string line;
  for (int number = 1; std::getline(script, line); ++number) {
    try {
      rehearsal.Play(line);
    } catch (const ScriptFailure& failure) {
      std::cout.flush();
      std::cerr << name << ':' << number << ": " << failure.what() << '\n';
      return 2;
    }
  }
  return 0;
}

std::unique_ptr<Transcript> MakeTranscript(const RehearsalOptions& options, Clock& clock) {
  if (options.readable) {
    return std::make_unique<ReadableTranscript>(std::cout, clock, isatty(STDOUT_FILENO) == 1);
  }
  return std::make_unique<JsonTranscript>(std::cout, options.realtime);
}

int Rehearse(const RehearsalOptions& options, std::istream& script) {
  const TemporaryFolder temporary;
  const std::string documents =
      options.documents.empty() ? (temporary.Path() / "documents").string() : options.documents;
  const std::string store_file =
      options.store.empty() ? (temporary.Path() / "store.ini").string() : options.store;
  const std::string program = options.program.empty() ? BRENWICK_PROGRAM_FOLDER : options.program;

  ScriptedClock clock;
  ParseMoment("2004-01-10T12:00:00", clock.now);
  const auto transcript = MakeTranscript(options, clock);
  PosixFolders folders({documents, program, program + "/brenwick"});
  IniStore store(store_file, clock,
                 [](const std::string& message) { std::cerr << message << '\n'; });
  const auto engine = MakeEngine(options);
  std::function<void(std::chrono::milliseconds)> pass;
  if (options.realtime) pass = [](auto time) { std::this_thread::sleep_for(time); };
  Rehearsal rehearsal({*transcript, clock, folders, store, engine.get(), pass});
  const int status = PlayScript(rehearsal, script, options.script);
  std::cout.flush();
  if (engine) engine->WaitUntilSilent(std::chrono::minutes(10));
  return status;
}

int Main(const std::vector<std::string>& arguments) {
  const RehearsalOptions options = ParseOptions(arguments);
  if (options.help) {
    std::cout << kRehearsalHelp;
    return 0;
  }
  if (options.version) {
    std::cout << "brenwick-rehearse " << ProgramVersion{}.Plain() << '\n';
    return 0;
  }
  if (options.sound_device) return EspeakVoice(EspeakOptions{Locale()}).HasSound() ? 0 : 1;
  if (options.script == "-") return Rehearse(options, std::cin);
  std::ifstream script(options.script);
  if (!script || fs::is_directory(options.script)) {
    std::cerr << "brenwick-rehearse: cannot read " << options.script << '\n';
    return 1;
  }
  return Rehearse(options, script);
}

}  // namespace
}  // namespace brenwick

int main(int count, char** values) {
  try {
    return brenwick::Main({values + 1, values + count});
  } catch (const brenwick::OptionFailure& failure) {
    std::cerr << "brenwick-rehearse: " << failure.what() << "\ntry brenwick-rehearse --help\n";
    return 2;
  } catch (const brenwick::Failure& failure) {
    std::cerr << "brenwick-rehearse: " << failure.Description() << '\n';
    return 1;
  }
}

#include "rehearsals/player/Player.h"

#include <algorithm>
#include <fstream>
#include <sstream>

#include "rehearsal/Rehearse.h"
#include "rehearsal/ScratchFolder.h"
#include "rehearsals/player/Comparison.h"

namespace brenwick {
namespace {

namespace fs = std::filesystem;

// The folder of a run is another at each run.
constexpr std::string_view kFolder = "FOLDER";

constexpr auto kOver = fs::copy_options::recursive | fs::copy_options::overwrite_existing;

void LayOut(const RehearsalCase& played, const fs::path& program, const fs::path& folder) {
  const auto has = [&](const char* part) {
    return std::any_of(played.layers.begin(), played.layers.end(),
                       [&](const fs::path& layer) { return fs::exists(layer / part); });
  };
  const bool copied =
      std::any_of(played.copies.begin(), played.copies.end(),
                  [](const NamedFile& copy) { return copy.name.starts_with("program/"); });
  if (copied || has("program")) fs::copy(program, folder / "program", kOver);
  for (const fs::path& layer : played.layers) {
    if (fs::exists(layer / "before")) fs::copy(layer / "before", folder / "documents", kOver);
    if (fs::exists(layer / "program")) fs::copy(layer / "program", folder / "program", kOver);
    if (fs::exists(layer / "store")) fs::copy(layer / "store", folder / "store.ini", kOver);
  }
  for (const NamedFile& copy : played.copies) {
    fs::create_directories((folder / copy.name).parent_path());
    fs::copy(copy.file, folder / copy.name, kOver);
  }
}

// The files below the folder, by their names there.
std::vector<std::string> FilesBelow(const fs::path& folder) {
  std::vector<std::string> names;
  for (const auto& entry : fs::recursive_directory_iterator(folder)) {
    if (!entry.is_regular_file()) continue;
    names.push_back(fs::relative(entry.path(), folder).generic_string());
  }
  std::sort(names.begin(), names.end());
  return names;
}

std::string CompareFile(const std::string& name, const fs::path& wanted, const fs::path& made) {
  if (!fs::is_regular_file(made)) return name + " was not written";
  const std::string holds = ReadWhole(made);
  if (holds == ReadWhole(wanted)) return {};
  return name + " holds\n" + holds + "\nand not\n" + ReadWhole(wanted);
}

std::string CompareDocuments(const RehearsalCase& played, const fs::path& folder) {
  for (const fs::path& wanted : played.afterwards) {
    for (const std::string& name : FilesBelow(wanted)) {
      std::string wrong = CompareFile(name, wanted / name, folder / "documents" / name);
      if (!wrong.empty()) return wrong;
    }
  }
  for (const NamedFile& held : played.holds) {
    std::string wrong = CompareFile(held.name, held.file, folder / "documents" / held.name);
    if (!wrong.empty()) return wrong;
  }
  for (const std::string& name : played.unchanged) {
    // The last layer that has it is the one that was put in place.
    const auto layer =
        std::find_if(played.layers.rbegin(), played.layers.rend(),
                     [&](const fs::path& each) { return fs::exists(each / "before" / name); });
    if (layer == played.layers.rend()) return name + " was not there before";
    std::string wrong = CompareFile(name, *layer / "before" / name, folder / "documents" / name);
    if (!wrong.empty()) return wrong;
  }
  return {};
}

std::string CompareTranscript(const RehearsalCase& played, const TextLines& got) {
  if (!fs::exists(played.transcript)) return "there is no transcript; --update writes it";
  const TextLines expected = SplitLines(ReadWhole(played.transcript));
  const std::string wrong = Mismatch(expected, got);
  if (wrong.empty()) return {};
  return wrong + "\n" + Difference(expected, Collapsed(played.script, got));
}

// The debug log of the rehearsal's first day.
std::string CompareLog(const RehearsalCase& played, const fs::path& folder) {
  if (!played.log) return {};
  const TextLines wanted = SplitLines(ReadWhole(*played.log));
  if (wanted.empty()) return "the expected log is empty";
  const fs::path logs = folder / "documents/Brenwick/DebugLogs";
  std::vector<std::string> names;
  if (fs::is_directory(logs)) names = FilesBelow(logs);
  std::erase_if(names, [](const std::string& name) { return !name.ends_with(".log"); });
  if (names.empty()) return "no debug log was written";
  const std::string log = Replaced(ReadWhole(logs / names.front()), folder.string(), kFolder);
  if (LogHolds(wanted, log)) return {};
  return "the debug log does not hold these lines together\n" + Difference(wanted, LinesOfLog(log));
}

}  // namespace

// What came of one rehearsal.
struct Player::Run {
  TextLines transcript;
  std::string trouble;  // empty when the rehearsal went well
};

Player::Run Player::Play(const RehearsalCase& played, const fs::path& folder) const {
  LayOut(played, program_, folder);
  RehearsalOptions options;
  options.program = (fs::exists(folder / "program") ? folder / "program" : program_).string();
  options.documents = (folder / "documents").string();
  options.store = (folder / "store.ini").string();
  options.script = played.script_file.string();
  std::ostringstream transcript;
  std::ostringstream errors;
  const ExitStatus status = Rehearse(options, transcript, errors, spectator_);
  Run run;
  run.transcript = SplitLines(Replaced(transcript.str(), folder.string(), kFolder));
  if (status != kDone || !errors.str().empty()) {
    run.trouble = "exit status " + std::to_string(status) + "\n" + errors.str();
    if (!run.transcript.empty()) run.trouble += "behind " + run.transcript.back();
  }
  return run;
}

std::string Player::Check(const std::string& name) const {
  try {
    const RehearsalCase played = ReadCase(root_, name);
    const ScratchFolder folder;
    const Run run = Play(played, folder.Path());
    std::string wrong = run.trouble;
    if (wrong.empty()) wrong = CompareTranscript(played, run.transcript);
    if (wrong.empty()) wrong = CompareLog(played, folder.Path());
    if (wrong.empty()) wrong = CompareDocuments(played, folder.Path());
    return wrong;
  } catch (const std::exception& failure) {
    return failure.what();
  }
}

std::string Player::Update(const std::string& name) const {
  try {
    const RehearsalCase played = ReadCase(root_, name);
    if (played.shares_transcript) return Check(name);
    const ScratchFolder folder;
    const Run run = Play(played, folder.Path());
    if (!run.trouble.empty()) return run.trouble;
    const TextLines lines =
        played.whole_start ? run.transcript : Collapsed(played.script, run.transcript);
    std::ofstream file(played.transcript, std::ios::binary);
    for (const std::string& line : lines) file << line << '\n';
    if (!file.flush()) return "cannot write " + played.transcript.string();
    return {};
  } catch (const std::exception& failure) {
    return failure.what();
  }
}

}  // namespace brenwick

#include "rehearsals/player/Case.h"

#include <algorithm>
#include <fstream>
#include <iterator>
#include <map>

#include "rehearsals/player/Comparison.h"

namespace brenwick {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view kScript = "script.jsonl";

const fs::path& Existing(const fs::path& path) {
  if (!fs::exists(path)) throw CaseFailure("there is no " + path.string());
  return path;
}

// Reads the comments of one script that say more than its purpose.
class Head {
 public:
  Head(const fs::path& root, RehearsalCase& read) : root_(root), read_(read) {}

  void Read(const std::string& line) {
    if (line == "# whole start") read_.whole_start = true;
    const std::size_t colon = line.find(": ");
    if (!line.starts_with("# ") || colon == std::string::npos) return;
    const std::string word = line.substr(2, colon - 2);
    const bool is_word = !word.empty() && std::all_of(word.begin(), word.end(), [](char letter) {
      return letter >= 'a' && letter <= 'z';
    });
    if (!is_word) return;
    const auto known = kWords.find(word);
    if (known == kWords.end()) throw CaseFailure("nobody knows \"" + word + ":\"");
    (this->*known->second)(line.substr(colon + 2));
  }

 private:
  static const std::map<std::string, void (Head::*)(const std::string&)> kWords;

  fs::path World(const std::string& name) const { return root_ / "worlds" / name; }

  NamedFile Named(const std::string& both, std::string_view between) const {
    const std::size_t at = both.find(between);
    if (at == std::string::npos) {
      throw CaseFailure("\"" + both + "\" lacks \"" + std::string(between) + "\"");
    }
    return {Existing(World(both.substr(0, at))), both.substr(at + between.size())};
  }

  void AddWorld(const std::string& name) { read_.layers.push_back(Existing(World(name))); }
  void AddCopy(const std::string& both) { read_.copies.push_back(Named(both, " to ")); }
  void AddHeld(const std::string& both) { read_.holds.push_back(Named(both, " as ")); }
  void AddUnchanged(const std::string& file) { read_.unchanged.push_back(file); }
  void AddAfterwards(const std::string& name) {
    read_.afterwards.push_back(Existing(World(name) / "before"));
  }
  void ShareTranscript(const std::string& name) {
    read_.transcript = Existing(root_ / name / "transcript");
    read_.shares_transcript = true;
  }
  void ShareLog(const std::string& name) { read_.log = Existing(root_ / name / "log"); }

  const fs::path& root_;
  RehearsalCase& read_;
};

const std::map<std::string, void (Head::*)(const std::string&)> Head::kWords = {
    {"world", &Head::AddWorld},
    {"copy", &Head::AddCopy},
    {"holds", &Head::AddHeld},
    {"unchanged", &Head::AddUnchanged},
    {"afterwards", &Head::AddAfterwards},
    {"transcript", &Head::ShareTranscript},
    {"log", &Head::ShareLog},
};

}  // namespace

std::string ReadWhole(const fs::path& file) {
  std::ifstream stream(file, std::ios::binary);
  if (!stream) throw CaseFailure("cannot read " + file.string());
  return {std::istreambuf_iterator<char>(stream), {}};
}

std::vector<std::string> CaseNames(const fs::path& root) {
  std::vector<std::string> names;
  for (const auto& entry : fs::recursive_directory_iterator(root)) {
    if (entry.path().filename() != kScript) continue;
    names.push_back(fs::relative(entry.path().parent_path(), root).generic_string());
  }
  std::sort(names.begin(), names.end());
  return names;
}

RehearsalCase ReadCase(const fs::path& root, const std::string& name) {
  const fs::path folder = root / name;
  RehearsalCase read;
  read.name = name;
  read.script_file = Existing(folder / kScript);
  read.script = ReadWhole(read.script_file);
  read.transcript = folder / "transcript";
  if (fs::exists(folder / "log")) read.log = folder / "log";
  if (fs::exists(folder / "after")) read.afterwards.push_back(folder / "after");
  Head head(root, read);
  for (const std::string& line : SplitLines(read.script)) head.Read(line);
  if (read.shares_transcript && fs::exists(folder / "transcript")) {
    throw CaseFailure("there is a transcript of its own beside the shared one");
  }
  read.layers.push_back(folder);
  return read;
}

}  // namespace brenwick

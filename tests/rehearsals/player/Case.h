// A rehearsal as it lies in the tree: a folder with a script, whose comments name what it shares.
#pragma once

#include <filesystem>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

namespace brenwick {

// A case that cannot be read, in words for whoever wrote it.
class CaseFailure : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// A file below worlds/, and what it is called in the folder of a run or in the documents.
struct NamedFile {
  std::filesystem::path file;
  std::string name;
};

struct RehearsalCase {
  std::string name;  // its folder below the root, such as "messages/plain"
  std::string script;
  std::filesystem::path script_file;
  // Folders that hold "before", "program" or "store", each put over what came earlier. The case's
  // own is the last.
  std::vector<std::filesystem::path> layers;
  std::vector<NamedFile> copies;  // files laid out under another name
  // Folders whose files the documents must hold afterwards.
  std::vector<std::filesystem::path> afterwards;
  // Files that the documents must hold afterwards under another name.
  std::vector<NamedFile> holds;
  // Files of the documents that must be afterwards what they were.
  std::vector<std::string> unchanged;
  std::filesystem::path transcript;
  bool shares_transcript = false;
  std::optional<std::filesystem::path> log;
  bool whole_start = false;
};

// The names of all cases below the root, in alphabetical order.
std::vector<std::string> CaseNames(const std::filesystem::path& root);

// Raises CaseFailure for a script that is missing or whose comments name what is not there.
RehearsalCase ReadCase(const std::filesystem::path& root, const std::string& name);

// The whole file. Raises CaseFailure where it cannot be read.
std::string ReadWhole(const std::filesystem::path& file);

}  // namespace brenwick

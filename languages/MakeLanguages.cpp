// Makes the data of the program folder from the readable sources in this folder; the build runs it.
//
//   brenwick-make-languages language SOURCE PROGRAM_FOLDER
//     Languages/<Name>.TML (coded) and OrgLanguages/<Name>.Txt (plain) from one language's source
//   brenwick-make-languages abbreviations SOURCE PROGRAM_FOLDER
//     Abbreviations.Txt, as it is but for its line ends
#include <cstddef>
#include <exception>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "base/Lines.h"
#include "base/Text.h"
#include "language/Coding.h"

namespace brenwick {
namespace {

namespace fs = std::filesystem;

// Texts are found by their number, so a language with more or fewer has a line too many or lacks
// one somewhere, and everything behind it would be said in the wrong place.
constexpr std::size_t kTexts = 204;

std::string ReadFile(const fs::path& path) {
  std::ifstream file(path, std::ios::binary);
  std::string content{std::istreambuf_iterator<char>(file), {}};
  if (!file) throw std::runtime_error("cannot be read");
  return content;
}

// Written beside itself and renamed, so that a build that fails here leaves no half file that looks
// up to date.
void WriteFile(const fs::path& path, std::string_view content) {
  fs::create_directories(path.parent_path());
  fs::path beside = path;
  beside += ".new";
  std::ofstream file(beside, std::ios::binary);
  file << content;
  file.close();
  if (!file) throw std::runtime_error("cannot write " + path.string());
  fs::rename(beside, path);
}

// The name under which the program lists a file: up to the first full stop.
std::string LanguageName(const fs::path& source) {
  const std::string name = source.filename().string();
  return name.substr(0, name.find('.'));
}

void CheckNumberOfTexts(std::string_view content) {
  std::size_t count = 0;
  for (const std::string_view line : Lines(content)) count += IsBlank(line) ? 0 : 1;
  if (count == kTexts) return;
  throw std::runtime_error(std::to_string(count) + " texts instead of " + std::to_string(kTexts));
}

void MakeLanguage(const fs::path& source, const fs::path& folder) {
  const std::string content = ReadFile(source);
  CheckNumberOfTexts(content);
  const std::string coded = CodeLanguage(content);
  const std::string plain = PlainSource(content);
  WriteFile(folder / "OrgLanguages" / (LanguageName(source) + ".Txt"), plain);
  WriteFile(folder / "Languages" / (LanguageName(source) + ".TML"), coded);
}

void MakeAbbreviations(const fs::path& source, const fs::path& folder) {
  const std::string content = ReadFile(source);
  std::string table;
  for (const std::string_view line : Lines(content)) table.append(line).append("\r\n");
  WriteFile(folder / "Abbreviations.Txt", table);
}

int Run(const std::vector<std::string>& arguments) {
  if (arguments.size() == 3 && arguments[0] == "language") {
    MakeLanguage(arguments[1], arguments[2]);
  } else if (arguments.size() == 3 && arguments[0] == "abbreviations") {
    MakeAbbreviations(arguments[1], arguments[2]);
  } else {
    std::cerr << "usage: brenwick-make-languages language|abbreviations SOURCE PROGRAM_FOLDER\n";
    return 1;
  }
  return 0;
}

}  // namespace
}  // namespace brenwick

int main(int argc, char** argv) {
  const std::vector<std::string> arguments(argv + 1, argv + argc);
  try {
    return brenwick::Run(arguments);
  } catch (const brenwick::SourceFailure& failure) {
    std::cerr << arguments[1] << ':' << failure.Line() << ": " << failure.Reason() << '\n';
  } catch (const std::exception& failure) {
    std::cerr << arguments[1] << ": " << failure.what() << '\n';
  }
  return 1;
}

#include "speech/Abbreviations.h"

#include <cstddef>

#include "base/Lines.h"
#include "base/SystemText.h"
#include "base/Text.h"

namespace brenwick {
namespace {

constexpr const char* kProcedure = "EmoticonRead";
constexpr const char* kFileName = "Abbreviations.Txt";

std::vector<std::string> EntryLines(const std::string& content) {
  std::vector<std::string> lines;
  for (const std::string_view line : Lines(WithoutByteOrderMark(content))) {
    if (!IsBlank(line)) lines.push_back(TextFromSystemCodePage(line));
  }
  return lines;
}

}  // namespace

std::string Abbreviations::CreateUserFile() {
  const std::string own = folders_.ProgramFolder() + folders_.Separator() + kFileName;
  const std::string path = data_.Inside(kFileName);
  if (folders_.FileExists(path) || !folders_.FileExists(own)) return path;
  std::string copy;
  const std::string content = folders_.Read(own);
  for (const std::string_view line : Lines(content)) copy.append(line).append("\r\n");
  folders_.Replace(path, copy);
  return path;
}

void Abbreviations::EmoticonRead(bool atStartup) {
  log_.Trap("modFunctions", kProcedure, [&] {
    progress_.SetHourglass(true);
    const std::string message = texts_.LoadText(93);
    if (atStartup) {
      progress_.SetText(message);
    } else {
      progress_.StatusForm(true, message);
    }
    const std::string path = data_.Inside(kFileName);
    log_.DebugWrite(kProcedure, "Reading abbreviations from " + path);
    Load(path);
    progress_.SetHourglass(false);
    if (!atStartup) progress_.StatusForm(false);
  });
}

void Abbreviations::Load(const std::string& path) {
  if (!folders_.FileExists(path)) {
    rows_.assign(1, Row{});
    count_ = 0;
    return;
  }
  const std::vector<std::string> lines = EntryLines(folders_.Read(path));
  // The log tells the number of the last row, which is one less than there are.
  log_.DebugWrite(
      kProcedure,
      "Found " + std::to_string(static_cast<std::ptrdiff_t>(lines.size()) - 1) + " abbreviations");
  if (lines.empty()) throw Failure(kSubscript);
  rows_.assign(lines.size(), Row{});
  count_ = 0;
  for (const std::string& line : lines) {
    Row& row = rows_[static_cast<std::size_t>(count_)];
    ++count_;
    const std::size_t equals = line.find('=');
    if (equals == std::string::npos) throw Failure(kInvalidCall);
    row = {line.substr(0, equals), line.substr(equals + 1)};
  }
}

void Abbreviations::ReplaceEmoticons(std::string& text) const {
  log_.Trap("modFunctions", "ReplaceEmoticons", [&] {
    if (count_ < 1) return;
    for (const Row& row : rows_) {
      const std::size_t at = text.find(row.abbreviation);
      // An abbreviation of no characters is found in every text but the empty one.
      if (at == std::string::npos || (row.abbreviation.empty() && text.empty())) continue;
      text.replace(at, row.abbreviation.size(), row.replacement);
      return;
    }
  });
}

}  // namespace brenwick

// A table of abbreviations of any bytes, and texts that it is applied to. A NUL separates the table
// and the texts.
#include <utility>

#include "base/Lines.h"
#include "base/SystemText.h"
#include "base/Text.h"
#include "fuzz/FuzzWorld.h"
#include "speech/Abbreviations.h"

namespace brenwick {
namespace {

constexpr const char* kFile = "/documents/Brenwick/Abbreviations.Txt";
constexpr const char* kStarter = "/program/Abbreviations.Txt";

using Rows = std::vector<std::pair<std::string, std::string>>;

struct Program {
  FakeWorld world;
  TextTable texts{world.log};
  Abbreviations abbreviations{world.log, texts, world.status, world.data, world.folders};

  Program() {
    world.state.Debug = true;
    texts.Replace(NumberedTexts());
  }
  bool Read(bool at_startup) {
    return ComesToItsEnd([&] { abbreviations.EmoticonRead(at_startup); });
  }
  std::string Replaced(std::string text) const {
    abbreviations.ReplaceEmoticons(text);
    return text;
  }
};

// The table in a plain reading of it. False: it has no row, or one that is none.
bool RowsOf(std::string_view table, Rows& rows) {
  for (const std::string_view bytes : Lines(WithoutByteOrderMark(table))) {
    if (IsBlank(bytes)) continue;
    const std::string line = TextFromSystemCodePage(bytes);
    const std::size_t equals = line.find('=');
    if (equals == std::string::npos) return false;
    rows.emplace_back(line.substr(0, equals), line.substr(equals + 1));
  }
  return !rows.empty();
}

std::string ReplacedBy(const Rows& rows, const std::string& text) {
  if (text.empty()) return text;
  for (const auto& [abbreviation, replacement] : rows) {
    const std::size_t at = text.find(abbreviation);
    if (at == std::string::npos) continue;
    return text.substr(0, at) + replacement + text.substr(at + abbreviation.size());
  }
  return text;
}

void CheckInput(std::string_view input) {
  std::vector<std::string_view> texts = Parts(input);
  const std::string table(texts.front());
  texts.erase(texts.begin());
  Rows rows;
  const bool good = RowsOf(table, rows);

  Program program;
  program.world.folders.files[kFile] = table;
  Expect(program.Read(texts.size() % 2 == 0) == good, "a table is read when each line is a row");
  if (!good) {
    Expect(ShowsErrorReport(program.world.screen), "a bad table is reported");
    return;
  }
  Expect(program.world.screen.boxes.empty(), "a good table is read in silence");
  Expect(program.abbreviations.Count() == static_cast<int>(rows.size()), "every row counts");

  Program copied;
  copied.world.folders.files[kStarter] = table;
  Expect(copied.abbreviations.CreateUserFile() == kFile, "the user's file is the user's");
  Expect(copied.Read(true), "a copy of the starter table can be read");
  Expect(copied.abbreviations.Count() == program.abbreviations.Count(), "a copy has every row");

  for (const std::string_view bytes : texts) {
    const std::string text = Repaired(bytes);
    const std::string replaced = program.Replaced(text);
    Expect(replaced == ReplacedBy(rows, text), "the first row found is replaced, once");
    Expect(IsValidUtf8(replaced), "the text stays valid UTF-8");
    Expect(copied.Replaced(text) == replaced, "a copy of the starter table says the same");
  }
}

const FuzzTarget kTarget("abbreviations", CheckInput);

}  // namespace
}  // namespace brenwick

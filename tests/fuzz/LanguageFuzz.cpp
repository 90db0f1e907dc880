// A language file of any bytes, and the coder that makes language files from any text.
#include <algorithm>

#include "base/CodePage.h"
#include "base/Lines.h"
#include "base/Text.h"
#include "fuzz/FuzzWorld.h"
#include "language/Coding.h"
#include "language/Languages.h"
#include "pages/GeneralPage.h"

namespace brenwick {
namespace {

constexpr const char* kFile = "/program/Languages/English.TML";
constexpr std::size_t kMostTexts = 32'000;

std::size_t LinesOf(std::string_view file) {
  const std::vector<std::string_view> lines = Lines(file);
  return static_cast<std::size_t>(std::count_if(
      lines.begin(), lines.end(), [](std::string_view line) { return !IsBlank(line); }));
}

// One for all: a window takes its time to make.
frmMain& FormWithEnglish() {
  static frmMain form;
  if (form.cmbLanguage.ListCount() == 0) {
    form.cmbLanguage.AddItem("English");
    form.cmbLanguage.SetListIndex(0);
  }
  return form;
}

// A program with the one language.
class Reader {
 public:
  explicit Reader(std::string_view file) {
    world_.folders.files[kFile] = file;
    world_.state.Debug = true;
    texts_.Replace(NumberedTexts());
  }

  // True: there are texts. Otherwise the user was told in one box, and the program ended.
  bool Read(bool quiet) {
    const bool read = ComesToItsEnd([&] { languages_.ReadLanguage(quiet); });
    const FakeScreen& screen = world_.screen;
    if (read) {
      Expect(screen.boxes.empty(), "a language that was read is read in silence");
      Expect(screen.LastPointer() == Pointer::Default, "the pointer is no hourglass any more");
    } else {
      Expect(ShowsErrorReport(screen) || ShowsDamage(), "the user is told why the program ends");
    }
    return read;
  }

  // The first `count` texts from id 1 on.
  std::vector<std::string> Texts(std::size_t count) {
    std::vector<std::string> texts;
    Expect(ComesToItsEnd([&] {
             for (std::size_t id = 1; id <= count; ++id) {
               texts.push_back(texts_.LoadText(static_cast<std::int16_t>(id)));
             }
             Expect(texts_.LoadText(0).empty(), "text 0 is empty");
             Expect(texts_.LoadText(static_cast<std::int16_t>(count + 1)).empty(),
                    "the text behind the last is empty");
           }),
           "every text that the file holds can be had");
    return texts;
  }

 private:
  bool ShowsDamage() const {
    return world_.screen.boxes.size() == 1 &&
           world_.screen.boxes[0].text.starts_with("Languagefile for English is damaged.");
  }

  FakeWorld world_;
  frmMain& form_ = FormWithEnglish();
  TextTable texts_{world_.log};
  LanguageLists lists_{form_};
  Languages languages_{world_.log,     lists_,        texts_,        world_.status,
                       world_.folders, world_.screen, world_.system, [] { return "English"; }};
};

// Where no text holds what ends a line, coding the texts again makes the file they came from.
void CheckCodedAgain(std::string_view file, const std::vector<std::string>& texts) {
  std::string source;
  for (const std::string& text : texts) {
    if (IsBlank(text) || text.find_first_of("\r\n") != std::string::npos) return;
    source += text + '\n';
  }
  const std::string again = CodeLanguage(source);
  std::vector<std::string_view> before = Lines(file);
  std::erase_if(before, [](std::string_view line) { return IsBlank(line); });
  const std::vector<std::string_view> after = Lines(again);
  Expect(
      before.size() == after.size() && std::equal(after.begin(), after.end() - 1, before.begin()),
      "the texts stand for the lines of the file");
}

void CheckFile(std::string_view file) {
  Reader(file).Read(true);
  Reader reader(file);
  if (!reader.Read(false)) return;
  const std::vector<std::string> texts = reader.Texts(LinesOf(file) - 1);
  for (const std::string& text : texts) Expect(IsValidUtf8(text), "texts are valid UTF-8");
  CheckCodedAgain(file, texts);
}

void CheckSource(std::string_view source) {
  std::string file;
  try {
    file = CodeLanguage(source);
  } catch (const Failure& failure) {
    Expect(failure.Number() == kInvalidCall || failure.Number() == kOverflow,
           "the coder refuses with the numbers it says");
    return;
  }
  Reader reader(file);
  Expect(reader.Read(true), "what was coded can be read");
  std::vector<std::string> texts;
  for (const std::string_view line : Lines(WithoutByteOrderMark(source))) {
    if (!IsBlank(line)) texts.emplace_back(line);
  }
  Expect(reader.Texts(texts.size()) == texts, "a coded source is read as it was written");
}

void CheckPlain(std::string_view source) {
  try {
    const std::string plain = PlainSource(source);
    Expect(Lines(plain).size() == Lines(WithoutByteOrderMark(source)).size(), "every line stays");
  } catch (const SourceFailure&) {
  }
}

const FuzzTarget kTarget("language", [](std::string_view bytes) {
  if (LinesOf(bytes) > kMostTexts) return;
  CheckFile(bytes);
  CheckSource(bytes);
  CheckPlain(bytes);
});

}  // namespace
}  // namespace brenwick

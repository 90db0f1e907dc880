#include "pages/FormTexts.h"

#include <utility>

#include "base/ProgramState.h"
#include "pages/FormTextTable.h"

namespace brenwick {
namespace {

constexpr const char* kLineEnd = "\r\n";

// A heading of the About page and the line below it.
struct AboutLine {
  std::int16_t heading;
  std::string data;
};

}  // namespace

FormTexts::FormTexts(Logs& log, frmMain& form, const TextTable& texts, Languages& languages,
                     Progress& progress, std::function<std::string()> abbreviationsFile)
    : log_(log),
      form_(form),
      texts_(texts),
      languages_(languages),
      progress_(progress),
      abbreviations_file_(std::move(abbreviationsFile)) {}

void FormTexts::SetAlltext(bool silent) {
  constexpr const char* kProcedure = "SetAlltext";
  log_.Trap("frmMain", kProcedure, [&] {
    log_.DebugWrite(kProcedure, "Setting formtext to correct language");
    if (!silent) progress_.StatusForm(true, texts_.LoadText(100));
    languages_.ReadLanguage(true);
    progress_.SetText(texts_.LoadText(88));
    form_.lblAbout.SetCaption(AboutText());
    SetCaptions();
    form_.lblAbbreviationsFile.SetCaption(
        texts_.GetText(texts_.LoadText(67), abbreviations_file_()));
    if (!silent) progress_.StatusForm(false);
  });
}

void FormTexts::SetCaptions() {
  for (const FormText& row : FormTextTable()) {
    if (row.id < kFirstLaterText || texts_.Has(row.id)) row.set(form_, texts_.LoadText(row.id));
  }
  SetPageTitles();
}

// The list is filled later in the start; a language chosen afterwards changes its entries.
void FormTexts::SetPageTitles() {
  for (int i = 0; i < form_.lstMenu.ListCount(); ++i) {
    const PageTitle& title = kPageTitles[static_cast<std::size_t>(i)];
    form_.lstMenu.SetList(i, texts_.LoadText(LaterText{title.text, title.english}));
  }
}

std::string FormTexts::AboutText() const {
  std::string about = texts_.LoadText(125) + kLineEnd + kLineEnd;
  about += texts_.LoadText(126) + kLineEnd + texts_.LoadText(127) + kLineEnd;
  for (std::int16_t id = 128; id <= 134; ++id) about += texts_.LoadText(id) + kLineEnd;
  const AboutLine lines[] = {
      {135, VersionText()},
      {136, form_.cmbLanguage.Text()},
      {137, "eSpeak NG"},
      {138, std::string("http://") + kPublisher + "/"},
  };
  for (const AboutLine& line : lines) {
    about += texts_.LoadText(line.heading) + kLineEnd + "\t" + line.data + kLineEnd;
  }
  return about;
}

}  // namespace brenwick

#include "pages/GeneralPage.h"

#include <utility>

#include "base/ProgramState.h"
#include "base/Text.h"
#include "settings/SettingsKeys.h"

namespace brenwick {
namespace {

constexpr const char* kModule = "frmMain";

}  // namespace

GeneralPage::GeneralPage(Logs& log, frmMain& form, const TextTable& texts, Screen& screen,
                         Folders& folders, Registry& registry, FormTexts& formTexts,
                         LanguageKey& languageKey, std::function<void()> defaultTexts)
    : log_(log),
      form_(form),
      texts_(texts),
      screen_(screen),
      folders_(folders),
      registry_(registry),
      form_texts_(formTexts),
      language_key_(languageKey),
      default_texts_(std::move(defaultTexts)) {
  form_.chkIntroduce.Click = [this] { chkIntroduce_Click(); };
  form_.chkStartWithWindows.Click = [this] { chkStartWithWindows_Click(); };
  form_.cmdLanguage.Click = [this] { cmdLanguage_Click(); };
  form_.cmdOrgLanguage.Click = [this] { cmdOrgLanguage_Click(); };
}

void GeneralPage::NameLanguageList() {
  form_.lblLanguage.SetCaption(texts_.LoadText(112));
  form_.cmdLanguage.SetCaption(texts_.LoadText(113));
}

void GeneralPage::chkIntroduce_Click() {
  form_.txtIntroductionText.SetEnabled(form_.chkIntroduce.Ticked());
}

void GeneralPage::chkStartWithWindows_Click() {
  log_.Trap(kModule, "chkStartWithWindows_Click", [&] {
    const bool start = form_.chkStartWithWindows.Ticked();
    log_.DebugWrite("StartWithWindows",
                    std::string("Current setting = ") +
                        (start ? "Start with Windows" : "Do not start with Windows"));
    cRegistry key = registry_.OpenRegistryKey(kRunKey);
    if (start) {
      Registry::SetRegistryValue(StartEntry(), key, kTitle, ValueKind::Text);
    } else {
      Registry::DeleteRegistryValue(key, kTitle);
    }
  });
}

// The program folder and the program file's base name with the ending that such entries have.
std::string GeneralPage::StartEntry() {
  const std::string file = folders_.ProgramFile();
  const std::size_t separator = file.rfind(folders_.Separator());
  const std::string name = separator == std::string::npos ? file : file.substr(separator + 1);
  return folders_.ProgramFolder() + folders_.Separator() + name.substr(0, name.find('.')) + ".EXE";
}

void GeneralPage::cmdLanguage_Click() {
  log_.Trap(kModule, "cmdLanguage_Click", [&] {
    if (LowerCase(form_.cmbLanguage.Text()) == "español") {
      screen_.MessageBox("Translation by:\r\n\r\nBrenwick", "Spanish", BoxIcon::Information,
                         BoxButtons::Ok);
    }
    form_texts_.SetAlltext(false);
    default_texts_();
  });
}

void GeneralPage::cmdOrgLanguage_Click() {
  language_key_.GenerateLaguageKey(
      [this] { return std::string(Trimmed(form_.cmbOrgLanguage.Text())); });
}

}  // namespace brenwick

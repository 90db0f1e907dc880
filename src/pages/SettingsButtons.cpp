#include "pages/SettingsButtons.h"

#include <array>

#include "base/ProgramState.h"
#include "base/Text.h"
#include "settings/SettingsKeys.h"

namespace brenwick {
namespace {

constexpr const char* kModule = "frmMain";

// The names of the pages that cmdDefaults resets: General, Text, User.
constexpr std::array<std::int16_t, 3> kPageNames = {17, 19, 18};

}  // namespace

SettingsButtons::SettingsButtons(Logs& log, frmMain& form, const TextTable& texts, Screen& screen,
                                 Folders& folders, Registry& registry, Settings& settings)
    : log_(log),
      form_(form),
      texts_(texts),
      screen_(screen),
      folders_(folders),
      registry_(registry),
      settings_(settings) {
  form_.cmdSaveSettings.Click = [this] {
    log_.Trap(kModule, "cmdSaveSettings_Click", [&] { settings_.SaveAllSettings(0); });
  };
  // Removing the settings is offered and does nothing.
  form_.cmdRemoveSettings.Click = [] {};
  for (Button& button : form_.cmdDefaults) {
    button.Click = [this, index = static_cast<std::int16_t>(button.Index())] {
      cmdDefaults_Click(index);
    };
  }
  form_.chkStartWithWindows.Click = [this] { chkStartWithWindows_Click(); };
}

void SettingsButtons::cmdDefaults_Click(std::int16_t index) {
  log_.Trap(kModule, "cmdDefaults_Click", [&] {
    const std::string page =
        LowerCase(texts_.LoadText(kPageNames.at(static_cast<std::size_t>(index))));
    const std::string question = texts_.LoadText(10) + " " + page + " ?";
    const BoxAnswer answer =
        screen_.MessageBox(question, kTitle, BoxIcon::Question, BoxButtons::YesNo);
    if (answer == BoxAnswer::Yes) settings_.Application_Defaults(index);
  });
}

void SettingsButtons::chkStartWithWindows_Click() {
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
std::string SettingsButtons::StartEntry() {
  const std::string file = folders_.ProgramFile();
  const std::size_t separator = file.rfind(folders_.Separator());
  const std::string name = separator == std::string::npos ? file : file.substr(separator + 1);
  return folders_.ProgramFolder() + folders_.Separator() + name.substr(0, name.find('.')) + ".EXE";
}

}  // namespace brenwick

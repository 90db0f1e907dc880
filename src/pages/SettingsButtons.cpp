#include "pages/SettingsButtons.h"

#include <array>

#include "base/ProgramState.h"
#include "base/Text.h"

namespace brenwick {
namespace {

constexpr const char* kModule = "frmMain";

// The names of the pages that cmdDefaults resets: General, Text, User.
constexpr std::array<std::int16_t, 3> kPageNames = {17, 19, 18};

}  // namespace

SettingsButtons::SettingsButtons(Logs& log, frmMain& form, const TextTable& texts, Screen& screen,
                                 Settings& settings)
    : log_(log), texts_(texts), screen_(screen), settings_(settings) {
  form.cmdSaveSettings.Click = [this] {
    log_.Trap(kModule, "cmdSaveSettings_Click", [&] { settings_.SaveAllSettings(0); });
  };
  // Removing the settings is offered and does nothing.
  form.cmdRemoveSettings.Click = [] {};
  for (Button& button : form.cmdDefaults) {
    button.Click = [this, index = static_cast<std::int16_t>(button.Index())] {
      cmdDefaults_Click(index);
    };
  }
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

}  // namespace brenwick

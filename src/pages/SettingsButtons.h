// The buttons that save the settings and reset a page.
#pragma once

#include <cstdint>

#include "forms/frmMain.h"
#include "language/TextTable.h"
#include "logging/Logs.h"
#include "pages/Settings.h"
#include "platform/Screen.h"

namespace brenwick {

class SettingsButtons {
 public:
  // Takes over the clicks of cmdSaveSettings, cmdRemoveSettings and cmdDefaults.
  SettingsButtons(Logs& log, frmMain& form, const TextTable& texts, Screen& screen,
                  Settings& settings);
  SettingsButtons(const SettingsButtons&) = delete;
  SettingsButtons& operator=(const SettingsButtons&) = delete;

  // Asks, and on Yes resets the page's controls; nothing is stored.
  void cmdDefaults_Click(std::int16_t index);

 private:
  Logs& log_;
  const TextTable& texts_;
  Screen& screen_;
  Settings& settings_;
};

}  // namespace brenwick

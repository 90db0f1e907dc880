// The buttons that save the settings and reset a page, and the box that starts the program with the
// system.
#pragma once

#include <cstdint>
#include <string>

#include "forms/frmMain.h"
#include "language/TextTable.h"
#include "logging/Logs.h"
#include "pages/Settings.h"
#include "platform/Folders.h"
#include "platform/Screen.h"
#include "settings/Registry.h"

namespace brenwick {

class SettingsButtons {
 public:
  // Takes over the clicks of cmdSaveSettings, cmdRemoveSettings, cmdDefaults and
  // chkStartWithWindows.
  SettingsButtons(Logs& log, frmMain& form, const TextTable& texts, Screen& screen,
                  Folders& folders, Registry& registry, Settings& settings);

  // Asks, and on Yes resets the page's controls; nothing is stored.
  void cmdDefaults_Click(std::int16_t index);

 private:
  void chkStartWithWindows_Click();
  std::string StartEntry();

  Logs& log_;
  frmMain& form_;
  const TextTable& texts_;
  Screen& screen_;
  Folders& folders_;
  Registry& registry_;
  Settings& settings_;
};

}  // namespace brenwick

// The two boxes that switch the logs on and off.
#pragma once

#include "base/ProgramState.h"
#include "forms/frmMain.h"
#include "logging/DataFolder.h"
#include "logging/LogFiles.h"
#include "logging/Logs.h"

namespace brenwick {

class LogSwitches {
 public:
  // Takes over the clicks of chkDebug and chkSaveConversations.
  LogSwitches(Logs& log, LogFiles& files, ProgramState& state, frmMain& form);

 private:
  void chkDebug_Click();
  void chkSaveConversations_Click();

  Logs& log_;
  LogFiles& files_;
  ProgramState& state_;
  frmMain& form_;
};

}  // namespace brenwick

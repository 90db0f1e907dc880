// The Log options page: which logs are written, and how long they are kept.
#pragma once

#include "base/ProgramState.h"
#include "forms/frmMain.h"
#include "logging/LogFiles.h"
#include "logging/LogRetention.h"
#include "logging/Logs.h"
#include "platform/Screen.h"

namespace brenwick {

class LogOptionsPage {
 public:
  // Takes over the page's controls and tmrOnceADay.
  LogOptionsPage(Logs& log, LogFiles& files, ProgramState& state, frmMain& form, Screen& screen,
                 LogRetention& retention);
  LogOptionsPage(const LogOptionsPage&) = delete;
  LogOptionsPage& operator=(const LogOptionsPage&) = delete;

 private:
  // The controls of one kind of log.
  struct Kind {
    CheckBox& clean_up;
    Label& label;
    TextBox& days;
  };

  Kind Conversations();
  Kind DebugLogs();
  void chkDebug_Click();
  void chkSaveConversations_Click();
  static void EnableRetention(const Kind& kind, bool enabled);
  void CleanUp_Click(const char* procedure, const Kind& kind);
  void Days_LostFocus(const char* procedure, TextBox& days);

  Logs& log_;
  LogFiles& files_;
  ProgramState& state_;
  frmMain& form_;
  Screen& screen_;
  LogRetention& retention_;
};

}  // namespace brenwick

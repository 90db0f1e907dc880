// Old daily logs are deleted once a day.
#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "forms/frmMain.h"
#include "logging/DataFolder.h"
#include "logging/LogFiles.h"
#include "logging/Logs.h"
#include "platform/Clock.h"
#include "platform/Folders.h"
#include "platform/Progress.h"
#include "platform/Screen.h"

namespace brenwick {

class LogRetention {
 public:
  // The status window's line for logs kept that number of days, by the number of its text.
  using StatusText = std::function<std::string(std::int16_t text, const std::string& days)>;

  // Takes over the two clean-up boxes, the boxes for the days, and tmrOnceADay.
  LogRetention(Logs& log, LogFiles& files, DataFolder& data, Folders& folders, Clock& clock,
               Screen& screen, Progress& progress, frmMain& form, StatusText statusText);

  // The timer runs while at least one kind of log is cleaned up.
  void SetLogCleanTimer();

 private:
  struct Kind;

  void WireControls();
  void CleanUp_Click(const char* procedure, const CheckBox& box, Label& label, TextBox& days);
  void Days_LostFocus(const char* procedure, TextBox& days);
  void tmrOnceADay_Timer();
  void Clean(const Kind& kind);
  void DeleteOlderThan(const std::string& folder, std::int16_t days);

  Logs& log_;
  LogFiles& files_;
  DataFolder& data_;
  Folders& folders_;
  Clock& clock_;
  Screen& screen_;
  Progress& progress_;
  frmMain& form_;
  StatusText status_text_;
  std::int16_t last_day_ = 0;  // of the month, on which cleaning ran; 0 before the first time
};

}  // namespace brenwick

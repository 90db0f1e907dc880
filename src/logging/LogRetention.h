// Old daily logs are deleted once a day.
#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "logging/DataFolder.h"
#include "logging/LogFiles.h"
#include "logging/Logs.h"
#include "platform/Clock.h"
#include "platform/Folders.h"
#include "platform/Progress.h"

namespace brenwick {

class LogRetention {
 public:
  static constexpr int kMostDays = 365;  // the most days that a log is kept

  // The status window's line for logs kept that number of days, by the number of its text.
  using StatusText = std::function<std::string(std::int16_t text, const std::string& days)>;

  // The user's wish for one kind of log, as it is at this moment.
  struct Wish {
    const bool& CleanUp;
    const std::string& DaysToKeep;  // as typed
  };

  LogRetention(Logs& log, LogFiles& files, DataFolder& data, Folders& folders, Clock& clock,
               Progress& progress, Wish conversations, Wish debugLogs, StatusText statusText);

  // The timer runs while at least one kind of log is cleaned up.
  void SetLogCleanTimer();
  // Deletes the old logs of each kind that is cleaned up, unless the last run was on the same day
  // of the month.
  void tmrOnceADay_Timer();

  // Starts and stops the timer that calls tmrOnceADay_Timer.
  std::function<void(bool on)> EnableTimer;

 private:
  struct Kind;

  void Clean(const Kind& kind);
  void DeleteOlderThan(const std::string& folder, std::int16_t days);

  Logs& log_;
  LogFiles& files_;
  DataFolder& data_;
  Folders& folders_;
  Clock& clock_;
  Progress& progress_;
  Wish conversations_;
  Wish debug_logs_;
  StatusText status_text_;
  std::int16_t last_day_ = 0;  // of the month, on which cleaning ran; 0 before the first time
};

}  // namespace brenwick

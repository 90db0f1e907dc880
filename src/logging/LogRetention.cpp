#include "logging/LogRetention.h"

#include <utility>

#include "base/Numbers.h"

namespace brenwick {
namespace {

constexpr const char* kModule = "frmMain";
constexpr const char* kTimer = "tmrOnceADay_Timer";

}  // namespace

struct LogRetention::Kind {
  const char* name;
  const Wish& wish;
  std::string folder;
  std::int16_t status_text;
};

LogRetention::LogRetention(Logs& log, LogFiles& files, DataFolder& data, Folders& folders,
                           Clock& clock, Progress& progress, Wish conversations, Wish debugLogs,
                           StatusText statusText)
    : log_(log),
      files_(files),
      data_(data),
      folders_(folders),
      clock_(clock),
      progress_(progress),
      conversations_(conversations),
      debug_logs_(debugLogs),
      status_text_(std::move(statusText)) {}

void LogRetention::SetLogCleanTimer() {
  log_.Trap("modFunctions", "SetLogCleanTimer", [&] {
    const bool on = conversations_.CleanUp || debug_logs_.CleanUp;
    if (EnableTimer) EnableTimer(on);
    log_.DebugWrite("SetLogCleantTimer", on ? "Timer on" : "Timer off");
  });
}

// Only the day of the month is compared.
void LogRetention::tmrOnceADay_Timer() {
  log_.Trap(kModule, kTimer, [&] {
    const std::chrono::year_month_day today{std::chrono::floor<std::chrono::days>(clock_.Now())};
    const auto day = static_cast<std::int16_t>(static_cast<unsigned>(today.day()));
    if (day == last_day_) return;
    Clean({"conversation", conversations_, data_.Conversations(), 148});
    Clean({"debug", debug_logs_, data_.DebugLogs(), 149});
    last_day_ = day;
  });
}

void LogRetention::Clean(const Kind& kind) {
  if (!kind.wish.CleanUp) return;
  // A tick can come while the user has the box empty: only leaving the box judges what it holds.
  const std::int16_t days = LeadingInteger16(kind.wish.DaysToKeep);
  if (days < 1) return;
  const std::string shown = std::to_string(days);
  log_.DebugWrite(kTimer,
                  std::string("Deleting ") + kind.name + " logs older then " + shown + " days");
  progress_.StatusForm(true, status_text_(kind.status_text, shown));
  DeleteOlderThan(kind.folder, days);
  progress_.StatusForm(false);
}

// From the first day that is not kept to a year back; at least that first day is looked at.
void LogRetention::DeleteOlderThan(const std::string& folder, std::int16_t days) {
  int back = days;
  do {
    ++back;
    const std::string file = files_.MakeDatedFile(folder, ToInteger16(back));
    if (folders_.FileExists(file)) folders_.Delete(file);
  } while (back < kMostDays);
}

}  // namespace brenwick

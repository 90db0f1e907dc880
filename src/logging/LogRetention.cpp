#include "logging/LogRetention.h"

#include <utility>

#include "base/Numbers.h"

namespace brenwick {
namespace {

constexpr const char* kModule = "frmMain";
constexpr const char* kTimer = "tmrOnceADay_Timer";
constexpr int kMostDays = 365;
constexpr const char* kDaysAfterBadEntry = "7";

bool IsBadEntry(const std::string& text) {
  if (text.empty()) return true;
  const double days = WholeNumber(text);
  return days > kMostDays || days < 1;
}

}  // namespace

struct LogRetention::Kind {
  const char* name;
  const CheckBox& box;
  const TextBox& days;
  std::string folder;
  std::int16_t status_text;
};

LogRetention::LogRetention(Logs& log, LogFiles& files, DataFolder& data, Folders& folders,
                           Clock& clock, Screen& screen, Progress& progress, frmMain& form,
                           StatusText statusText)
    : log_(log),
      files_(files),
      data_(data),
      folders_(folders),
      clock_(clock),
      screen_(screen),
      progress_(progress),
      form_(form),
      status_text_(std::move(statusText)) {
  WireControls();
}

void LogRetention::WireControls() {
  form_.chkLogConversationsCleanUp.Click = [this] {
    CleanUp_Click("chkLogConversationsCleanUp_Click", form_.chkLogConversationsCleanUp,
                  form_.lblLogConversationsDaysToKeep, form_.txtLogConversationsDaysToKeep);
  };
  form_.chkLogDebugCleanUp.Click = [this] {
    CleanUp_Click("chkLogDebugCleanUp_Click", form_.chkLogDebugCleanUp, form_.lblLogDebugDaysToKeep,
                  form_.txtLogDebugDaysToKeep);
  };
  form_.txtLogConversationsDaysToKeep.LostFocus = [this] {
    Days_LostFocus("txtLogConversationsDaysToKeep_LostFocus", form_.txtLogConversationsDaysToKeep);
  };
  form_.txtLogDebugDaysToKeep.LostFocus = [this] {
    Days_LostFocus("txtLogDebugDaysToKeep_LostFocus", form_.txtLogDebugDaysToKeep);
  };
  form_.tmrOnceADay.Tick = [this] { tmrOnceADay_Timer(); };
}

void LogRetention::SetLogCleanTimer() {
  log_.Trap("modFunctions", "SetLogCleanTimer", [&] {
    const bool on = form_.chkLogConversationsCleanUp.Ticked() || form_.chkLogDebugCleanUp.Ticked();
    form_.tmrOnceADay.SetEnabled(on);
    log_.DebugWrite("SetLogCleantTimer", on ? "Timer on" : "Timer off");
  });
}

void LogRetention::CleanUp_Click(const char* procedure, const CheckBox& box, Label& label,
                                 TextBox& days) {
  log_.Trap(kModule, procedure, [&] {
    days.SetEnabled(box.Ticked());
    label.SetEnabled(box.Ticked());
    days.SetLocked(!box.Ticked());
    SetLogCleanTimer();
  });
}

void LogRetention::Days_LostFocus(const char* procedure, TextBox& days) {
  log_.Trap(kModule, procedure, [&] {
    if (!IsBadEntry(days.Text())) return;
    screen_.Beep();
    days.SetText(kDaysAfterBadEntry);
    days.SetFocus();
    days.SelectAll();
  });
}

// Only the day of the month is compared.
void LogRetention::tmrOnceADay_Timer() {
  log_.Trap(kModule, kTimer, [&] {
    const std::chrono::year_month_day today{std::chrono::floor<std::chrono::days>(clock_.Now())};
    const auto day = static_cast<std::int16_t>(static_cast<unsigned>(today.day()));
    if (day == last_day_) return;
    Clean({"conversation", form_.chkLogConversationsCleanUp, form_.txtLogConversationsDaysToKeep,
           data_.Conversations(), 148});
    Clean({"debug", form_.chkLogDebugCleanUp, form_.txtLogDebugDaysToKeep, data_.DebugLogs(), 149});
    last_day_ = day;
  });
}

void LogRetention::Clean(const Kind& kind) {
  if (!kind.box.Ticked()) return;
  // A tick can come while the user has the box empty: only leaving the box judges what it holds.
  const std::int16_t days = LeadingInteger16(kind.days.Text());
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

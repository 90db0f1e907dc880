#include "pages/LogOptionsPage.h"

#include <string>

#include "base/Numbers.h"

namespace brenwick {
namespace {

constexpr const char* kModule = "frmMain";
constexpr const char* kDaysAfterBadEntry = "7";

bool IsBadEntry(const std::string& text) {
  if (text.empty()) return true;
  const double days = WholeNumber(text);
  return days > LogRetention::kMostDays || days < 1;
}

}  // namespace

LogOptionsPage::LogOptionsPage(Logs& log, LogFiles& files, ProgramState& state, frmMain& form,
                               Screen& screen, LogRetention& retention)
    : log_(log), files_(files), state_(state), form_(form), screen_(screen), retention_(retention) {
  form_.chkDebug.Click = [this] { chkDebug_Click(); };
  form_.chkSaveConversations.Click = [this] { chkSaveConversations_Click(); };
  form_.chkLogConversationsCleanUp.Click = [this] {
    CleanUp_Click("chkLogConversationsCleanUp_Click", Conversations());
  };
  form_.chkLogDebugCleanUp.Click = [this] {
    CleanUp_Click("chkLogDebugCleanUp_Click", DebugLogs());
  };
  form_.txtLogConversationsDaysToKeep.LostFocus = [this] {
    Days_LostFocus("txtLogConversationsDaysToKeep_LostFocus", form_.txtLogConversationsDaysToKeep);
  };
  form_.txtLogDebugDaysToKeep.LostFocus = [this] {
    Days_LostFocus("txtLogDebugDaysToKeep_LostFocus", form_.txtLogDebugDaysToKeep);
  };
  form_.tmrOnceADay.Tick = [this] { retention_.tmrOnceADay_Timer(); };
  retention_.EnableTimer = [this](bool on) { form_.tmrOnceADay.SetEnabled(on); };
}

LogOptionsPage::Kind LogOptionsPage::Conversations() {
  return {form_.chkLogConversationsCleanUp, form_.lblLogConversationsDaysToKeep,
          form_.txtLogConversationsDaysToKeep};
}

LogOptionsPage::Kind LogOptionsPage::DebugLogs() {
  return {form_.chkLogDebugCleanUp, form_.lblLogDebugDaysToKeep, form_.txtLogDebugDaysToKeep};
}

void LogOptionsPage::chkDebug_Click() {
  log_.Trap(kModule, "chkDebug_Click", [&] {
    state_.Debug = form_.chkDebug.Ticked();
    // The marker makes the next start debug too; switching off leaves it.
    if (state_.Debug) files_.WriteMarkerLine("Debug is set on");
    EnableRetention(DebugLogs(), state_.Debug);
  });
}

void LogOptionsPage::chkSaveConversations_Click() {
  log_.Trap(kModule, "chkSaveConversations_Click", [&] {
    state_.SaveConversations = form_.chkSaveConversations.Ticked();
    EnableRetention(Conversations(), state_.SaveConversations);
  });
}

// The days for which a log is kept can be chosen only while it is written.
void LogOptionsPage::EnableRetention(const Kind& kind, bool enabled) {
  kind.clean_up.SetEnabled(enabled);
  kind.label.SetEnabled(enabled);
  kind.days.SetEnabled(enabled);
  kind.days.SetLocked(!enabled);
}

void LogOptionsPage::CleanUp_Click(const char* procedure, const Kind& kind) {
  log_.Trap(kModule, procedure, [&] {
    const bool ticked = kind.clean_up.Ticked();
    kind.days.SetEnabled(ticked);
    kind.label.SetEnabled(ticked);
    kind.days.SetLocked(!ticked);
    retention_.SetLogCleanTimer();
  });
}

void LogOptionsPage::Days_LostFocus(const char* procedure, TextBox& days) {
  log_.Trap(kModule, procedure, [&] {
    if (!IsBadEntry(days.Text())) return;
    screen_.Beep();
    days.SetText(kDaysAfterBadEntry);
    days.SetFocus();
    days.SelectAll();
  });
}

}  // namespace brenwick

#include "pages/LogSwitches.h"

namespace brenwick {
namespace {

// How long a log is kept can be chosen only while it is written.
void EnableRetention(bool enabled, CheckBox& switched, Label& label, TextBox& days) {
  switched.SetEnabled(enabled);
  label.SetEnabled(enabled);
  days.SetEnabled(enabled);
  days.SetLocked(!enabled);
}

}  // namespace

LogSwitches::LogSwitches(Logs& log, LogFiles& files, ProgramState& state, frmMain& form)
    : log_(log), files_(files), state_(state), form_(form) {
  form_.chkDebug.Click = [this] { chkDebug_Click(); };
  form_.chkSaveConversations.Click = [this] { chkSaveConversations_Click(); };
}

void LogSwitches::chkDebug_Click() {
  log_.Trap("frmMain", "chkDebug_Click", [&] {
    state_.Debug = form_.chkDebug.Ticked();
    // The marker makes the next start debug too; switching off leaves it.
    if (state_.Debug) files_.WriteMarkerLine("Debug is set on");
    EnableRetention(state_.Debug, form_.chkLogDebugCleanUp, form_.lblLogDebugDaysToKeep,
                    form_.txtLogDebugDaysToKeep);
  });
}

void LogSwitches::chkSaveConversations_Click() {
  log_.Trap("frmMain", "chkSaveConversations_Click", [&] {
    state_.SaveConversations = form_.chkSaveConversations.Ticked();
    EnableRetention(state_.SaveConversations, form_.chkLogConversationsCleanUp,
                    form_.lblLogConversationsDaysToKeep, form_.txtLogConversationsDaysToKeep);
  });
}

}  // namespace brenwick

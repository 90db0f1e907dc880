// The shutdown: the main window is asked to unload, and unloads.
#include "app/Program.h"

namespace brenwick {
namespace {

constexpr const char* kModule = "frmMain";

}  // namespace

void Program::mPopExit_Click() {
  log_.Trap(kModule, "mPopExit_Click", [&] {
    log_.DebugWrite("PopupMenu", "Exit selected from popupmenu");
    Close();
  });
}

void Program::Close() {
  UnloadMainWindow();
  throw ProgramEnd{};
}

// The steps run twice, once when the window is asked and once when it goes.
void Program::UnloadMainWindow() {
  log_.Trap(kModule, "Form_QueryUnload", [&] { Release("Form_QueryUnLoad"); });
  log_.Trap(kModule, "Form_Unload", [&] {
    Release("Form_UnLoad");
    log_.DebugWrite("Form_UnLoad", "Unloading forms");
    status_.Form().Hide();
    form_.Hide();
  });
}

// Pending events are handled after each step, by a program that is closing.
void Program::Release(const char* procedure) {
  state_.ClosingDown = true;
  loop_.DoEvents();
  log_.DebugWrite(procedure, "Saving settings to the registry");
  // A start that failed before everything was read has nothing to save: it would write first
  // states over what the user has stored.
  if (settings_.Loaded()) settings_.SaveAllSettings(0);
  loop_.DoEvents();
  log_.DebugWrite(procedure, "Releasing Messenger object");
  messenger_.Detach();
  loop_.DoEvents();
  log_.DebugWrite(procedure, "Releasing Voice object");
  loop_.DoEvents();
  log_.DebugWrite(procedure, "Removing tray icon");
  tray_.Delete();
  loop_.DoEvents();
  if (form_.State() == WindowState::Minimized) form_.SetState(WindowState::Normal);
  loop_.DoEvents();
}

}  // namespace brenwick

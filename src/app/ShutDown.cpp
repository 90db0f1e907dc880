// The shutdown: the main window is asked to unload, and unloads.
#include "app/Program.h"

namespace brenwick {

void Program::mPopExit_Click() {
  log_.DebugWrite("PopupMenu", "Exit selected from popupmenu");
  Close();
}

void Program::Close() {
  UnloadMainWindow();
  throw ProgramEnd{};
}

// The steps run twice, once when the window is asked and once when it goes.
void Program::UnloadMainWindow() {
  state_.ClosingDown = true;
  Release("Form_QueryUnLoad");
  Release("Form_UnLoad");
  log_.DebugWrite("Form_UnLoad", "Unloading forms");
  status_.Form().Hide();
  form_.Hide();
}

void Program::Release(const char* procedure) {
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

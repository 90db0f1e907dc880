// The main window's life between the screen and the notification area.
#pragma once

#include <cstdint>
#include <string>

#include "base/ProgramState.h"
#include "forms/frmMain.h"
#include "language/TextTable.h"
#include "logging/Logs.h"
#include "messenger/ContactStates.h"
#include "pages/BuddiesMenu.h"
#include "pages/ContactPages.h"
#include "platform/TrayIcon.h"
#include "settings/Registry.h"

namespace brenwick {

class MainWindow {
 public:
  // Takes over the window's and the tray icon's events, and the hotkey that brings it forward.
  MainWindow(Logs& log, const ProgramState& state, frmMain& form, const TextTable& texts,
             TrayIcon& tray, Registry& registry, ContactPages& contactPages, BuddiesMenu& buddies,
             ContactStates& states);
  MainWindow(const MainWindow&) = delete;
  MainWindow& operator=(const MainWindow&) = delete;

  // The version text and whether the user is signed in.
  std::string CaptionText() const;

  // The window's place as it was stored; what lies beyond the left or upper edge is brought back.
  void RestorePlace();

  // Lists the page titles, that of the connections where there are any, and shows the page of the
  // selected title.
  void BuildMenu(bool connections);
  void SelectPage(Page page);
  // All pages in the same place of the window.
  void PlacePages();

  void AddTrayIcon();
  void RefreshTrayTip();
  // The window's first time on the screen, in its size.
  void ShowAtStart();
  // A title in the window's caption and the tray icon's tip.
  void ShowTitle(const std::string& title);

  void mPopRestore_Click();

 private:
  void Form_Resize();
  void FormSave();
  int StoredEdge(const char* name);
  void Form_MouseMove(int message);
  void lstMenu_Click();
  void cmdOK_Click();
  void ocxHotKeyActivateBW_HotkeyPressed();
  void tmrSayStateAgain_Timer();

  Logs& log_;
  const ProgramState& state_;
  frmMain& form_;
  const TextTable& texts_;
  TrayIcon& tray_;
  Registry& registry_;
  ContactPages& contact_pages_;
  BuddiesMenu& buddies_;
  ContactStates& states_;
  std::int16_t ticks_ = 0;  // since tmrSayStateAgain was started
};

}  // namespace brenwick

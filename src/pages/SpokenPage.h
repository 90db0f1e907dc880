// The Spoken page: mute, the names of contacts, and the key that stops the speech.
#pragma once

#include "forms/frmMain.h"
#include "logging/Logs.h"
#include "speech/Speech.h"

namespace brenwick {

class SpokenPage {
 public:
  // Takes over the page's check boxes, the tray menu's item for mute, and the silence hotkey.
  SpokenPage(Logs& log, frmMain& form, Speech& speech);
  SpokenPage(const SpokenPage&) = delete;
  SpokenPage& operator=(const SpokenPage&) = delete;

  void chkFinishSentence_Click();
  void chkUseMyNamesInsteadOfBuddyNames_Click();

  // The silence hotkey works while its box is ticked.
  void EnableSilenceHotKey();

 private:
  void chkMute_Click();
  void mnuMute_Click();
  void chkIntroduceUser_Click();
  void chkScrollLock_Click();
  void ocxHotKeySilent_HotkeyPressed();

  Logs& log_;
  frmMain& form_;
  Speech& speech_;
};

}  // namespace brenwick

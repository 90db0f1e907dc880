// The Repeat page: the last four sentences, and the hotkeys that say one of them again.
#pragma once

#include "forms/frmMain.h"
#include "logging/Logs.h"
#include "speech/Speech.h"
#include "speech/SpokenHistory.h"

namespace brenwick {

class RepeatPage {
 public:
  // Takes over the hotkeys ocxSpeakMsg1 and the click of chkUseRepeat. From then on the page shows
  // what changes in the history.
  RepeatPage(Logs& log, frmMain& form, SpokenHistory& history, Speech& speech);
  RepeatPage(const RepeatPage&) = delete;
  RepeatPage& operator=(const RepeatPage&) = delete;

  // The hotkeys, and the boxes that show the sentences, follow chkUseRepeat.
  void UseRepeatHotKeys();

 private:
  void ShowSentences();
  void ocxSpeakMsg1_HotkeyPressed(int index);

  Logs& log_;
  frmMain& form_;
  SpokenHistory& history_;
  Speech& speech_;
};

}  // namespace brenwick

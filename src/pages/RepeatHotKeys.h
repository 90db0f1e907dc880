// The hotkeys that say one of the last four sentences again.
#pragma once

#include "forms/frmMain.h"
#include "logging/Logs.h"
#include "speech/Speech.h"
#include "speech/SpokenHistory.h"

namespace brenwick {

class RepeatHotKeys {
 public:
  // Takes over the hotkeys ocxSpeakMsg1 and the click of chkUseRepeat.
  RepeatHotKeys(Logs& log, frmMain& form, const SpokenHistory& history, Speech& speech);

  // The hotkeys, and the boxes that show the sentences, follow chkUseRepeat.
  void UseRepeatHotKeys();

 private:
  void ocxSpeakMsg1_HotkeyPressed(int index);

  Logs& log_;
  frmMain& form_;
  const SpokenHistory& history_;
  Speech& speech_;
};

}  // namespace brenwick

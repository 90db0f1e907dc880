// The two lists from which the user chooses the male and the female voice.
#pragma once

#include <string>

#include "forms/frmMain.h"
#include "logging/Logs.h"
#include "platform/SpVoice.h"

namespace brenwick {

class VoiceLists {
 public:
  VoiceLists(Logs& log, frmMain& form, SpVoice& voice) : log_(log), form_(form), voice_(voice) {}

  // Fills both lists with the engine's voices in its own order, so that a position in a list is
  // also the number of a voice, and selects the first.
  void Fill();

  // Selects the entry whose text is exactly `stored`; without one, or when nothing is stored, the
  // selection stays.
  void SelectStored(ComboBox& list, const std::string& stored);

 private:
  Logs& log_;
  frmMain& form_;
  SpVoice& voice_;
};

}  // namespace brenwick

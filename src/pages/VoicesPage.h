// The Voices page: the male and the female voice, their speed and volume, and their trial.
#pragma once

#include <string>

#include "forms/frmMain.h"
#include "logging/Logs.h"
#include "platform/Screen.h"
#include "platform/SpVoice.h"
#include "speech/Speech.h"

namespace brenwick {

class VoicesPage {
 public:
  // Takes over the buttons that try a voice and the boxes with numbers.
  VoicesPage(Logs& log, frmMain& form, SpVoice& voice, Screen& screen, Speech& speech);
  VoicesPage(const VoicesPage&) = delete;
  VoicesPage& operator=(const VoicesPage&) = delete;

  // Fills both lists with the engine's voices in its own order, so that a position in a list is
  // also the number of a voice, and selects the first. Selects none where the list lacks voices: a
  // selection would be stored in place of the user's own.
  void Fill();

  // Selects the entry whose text is exactly `stored`; without one, or when nothing is stored, the
  // selection stays.
  void SelectStored(ComboBox& list, const std::string& stored);

 private:
  void Try(const char* procedure, const char* voiceCode);
  void CheckNumber(TextBox& box, const char* procedure, int lowest, int highest);

  Logs& log_;
  frmMain& form_;
  SpVoice& voice_;
  Screen& screen_;
  Speech& speech_;
};

}  // namespace brenwick

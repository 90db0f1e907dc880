// The four sentences spoken last, for the repeat hotkeys.
#pragma once

#include <array>
#include <string>

#include "forms/frmMain.h"
#include "logging/Logs.h"

namespace brenwick {

class SpokenHistory {
 public:
  struct Place {
    std::string sentence;
    std::string voice;  // the voice code it was spoken with
  };

  SpokenHistory(Logs& log, frmMain& form) : log_(log), form_(form) {}

  // Puts a sentence in place 0, moves the others on, drops the oldest, and shows all four in the
  // text boxes.
  void SpeakArray(const std::string& sentence, const std::string& voice);

  // Place 0 holds the newest, 3 the oldest. Raises kSubscript for any other index.
  const Place& At(int index) const;

  void Clear() { places_ = {}; }

 private:
  Logs& log_;
  frmMain& form_;
  std::array<Place, 4> places_;
};

}  // namespace brenwick

// The four sentences spoken last, for the repeat hotkeys.
#pragma once

#include <array>
#include <functional>
#include <string>

#include "logging/Logs.h"

namespace brenwick {

class SpokenHistory {
 public:
  struct Sentence {
    std::string text;
    std::string voice;  // the voice code it was spoken with
  };
  static constexpr int kLength = 4;

  explicit SpokenHistory(Logs& log) : log_(log) {}

  // Puts a sentence in place 0, moves the others on, drops the oldest, and calls Changed.
  void SpeakArray(const std::string& sentence, const std::string& voice);

  // Place 0 holds the newest, 3 the oldest. Raises kSubscript for any other index.
  const Sentence& At(int index) const;

  // Empties all places; Changed is not called.
  void Clear() { places_ = {}; }

  std::function<void()> Changed;

 private:
  Logs& log_;
  std::array<Sentence, kLength> places_;
};

}  // namespace brenwick

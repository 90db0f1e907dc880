#include "speech/SpokenHistory.h"

#include <algorithm>

namespace brenwick {

void SpokenHistory::SpeakArray(const std::string& sentence, const std::string& voice) {
  log_.Trap("frmMain", "SpeakArray", [&] {
    log_.DebugWrite("Speak", "Text to array (for 'say what' keys)");
    std::shift_right(places_.begin(), places_.end(), 1);
    places_[0] = {sentence, voice};
    if (Changed) Changed();
  });
}

const SpokenHistory::Sentence& SpokenHistory::At(int index) const {
  if (index < 0 || index >= kLength) throw Failure(kSubscript);
  return places_[static_cast<std::size_t>(index)];
}

}  // namespace brenwick

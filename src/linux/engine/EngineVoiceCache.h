// Remembers the voices of the engine from one start of the program to the next.
//
// The engine reads some 320 files to list them, and may hang. The program shows what it remembers,
// and the engine's own list, which comes later, is remembered for the next start.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "voice/EngineVoices.h"

namespace brenwick {

struct RememberedEngine {
  std::string locale;  // the voices are in the order of this one
  int sample_rate = 0;
  std::vector<EngineVoice> voices;
  bool operator==(const RememberedEngine&) const = default;
};

class EngineVoiceCache {
 public:
  // path: the file that holds them; empty where nothing is to be remembered.
  explicit EngineVoiceCache(std::string path);

  // What was remembered when the object was made, or since; nothing where there is no file, or none
  // that this program can read.
  const std::optional<RememberedEngine>& Recall() const { return remembered_; }

  // Writes the file where it held anything else. One that cannot be written is written another
  // time.
  void Remember(RememberedEngine engine);

 private:
  const std::string path_;
  std::optional<RememberedEngine> remembered_;
};

}  // namespace brenwick

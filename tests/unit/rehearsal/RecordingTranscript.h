// A transcript that is kept, and that can be told to fail.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "rehearsal/Transcript.h"

namespace brenwick {

class RecordingTranscript : public Transcript {
 public:
  void BeginStep(int number, const nlohmann::json&) override { Write({{"step", number}}); }
  void Write(const Effect& effect) override {
    lines.push_back(effect.dump());
    if (Written) Written(effect);
  }

  std::vector<std::string> lines;
  std::function<void(const Effect&)> Written;
};

}  // namespace brenwick

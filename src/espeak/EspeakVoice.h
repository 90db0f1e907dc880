// Speech by eSpeak NG, and by others whose voices stand behind its own in the list.
//
// The library keeps its state in its process, so there is one EspeakVoice at a time that has the
// engine in its own; the next one can follow it.
#pragma once

#include <memory>
#include <vector>

#include "espeak/EspeakBackend.h"
#include "voice/QueuedVoice.h"

namespace brenwick {

class EspeakVoice : public QueuedVoice {
 public:
  using Others = std::vector<std::unique_ptr<SpeechBackend>>;

  // Raises what EspeakBackend does, and kInvalidCall where another EspeakVoice has the engine.
  explicit EspeakVoice(const EspeakOptions& options, Others others = {});

  // False while there is no sound device: what is spoken then is not heard. The device is looked
  // for at the start, for which this waits, and again at every sentence.
  bool HasSound();

  // The voices to begin with.
  const VoicePair& Preferred() const { return espeak_.Preferred(); }

 private:
  EspeakVoice(std::unique_ptr<EspeakBackend> espeak, Others others);

  EspeakBackend& espeak_;
};

}  // namespace brenwick

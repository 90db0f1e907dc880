// A voice that speaks into a file of its own, for a test to measure.
#pragma once

#include <cstddef>
#include <filesystem>
#include <string>

#include "espeak/EspeakVoice.h"
#include "support/Sound.h"
#include "support/TemporaryFolder.h"

namespace brenwick {

// The folder is a base class so that it is there before the voice and goes after it.
class SpeakingToFile : private TemporaryFolder, public EspeakVoice {
 public:
  explicit SpeakingToFile(const std::string& locale = "en_GB.UTF-8", bool as_heard = false)
      : EspeakVoice({locale, Inside("speech.wav"), as_heard}) {}
  using MakeEngine = std::function<std::unique_ptr<SpeechEngine>()>;
  explicit SpeakingToFile(MakeEngine engine)
      : EspeakVoice({.locale = "en_GB.UTF-8",
                     .wav_file = Inside("speech.wav"),
                     .engine = std::move(engine)}) {}

  std::filesystem::path Folder() const { return Path(); }

  // Everything that was said, once it has been said.
  Sound Recorded() { return RecordedBehind(0); }

  // What this text alone sounds like.
  Sound Said(const std::string& text, int flags = SVSFlagsAsync) {
    const std::size_t before = SamplesSoFar();
    Speak(text, flags);
    return RecordedBehind(before);
  }

 private:
  std::filesystem::path File() const { return Inside("speech.wav"); }
  void AwaitSilence();
  std::size_t SamplesSoFar();
  Sound RecordedBehind(std::size_t samples);
};

}  // namespace brenwick

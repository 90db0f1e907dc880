// A voice that speaks into a file of its own, for a test to measure.
#pragma once

#include <cstddef>
#include <filesystem>
#include <memory>
#include <string>
#include <utility>

#include "espeak/EspeakEngine.h"
#include "support/EngineVoiceParts.h"
#include "support/Sound.h"
#include "support/TemporaryFolder.h"
#include "voice/QueuedVoice.h"
#include "voice/WavFile.h"

namespace brenwick {

// The folder is a base class so that it is there before the voice and goes after it.
class SpeakingToFile : private TemporaryFolder, public QueuedVoice {
 public:
  explicit SpeakingToFile(WavFile::Pace pace = WavFile::Pace::kAtOnce)
      : SpeakingToFile(std::make_unique<EspeakEngine>(), pace) {}
  explicit SpeakingToFile(std::unique_ptr<SpeechEngine> engine,
                          WavFile::Pace pace = WavFile::Pace::kAtOnce)
      : QueuedVoice(IntoFile(std::move(engine), Inside("speech.wav"), pace)) {}

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
  static Backends IntoFile(std::unique_ptr<SpeechEngine> engine, const std::filesystem::path& file,
                           WavFile::Pace pace) {
    auto output = std::make_unique<WavFile>(file, engine->SampleRate(), pace);
    return WithEngine(std::move(engine), std::move(output));
  }

  std::filesystem::path File() const { return Inside("speech.wav"); }
  void AwaitSilence();
  std::size_t SamplesSoFar();
  Sound RecordedBehind(std::size_t samples);
};

}  // namespace brenwick

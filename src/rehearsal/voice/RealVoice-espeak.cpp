#include "rehearsal/voice/RealVoice.h"

#include <utility>

#include "espeak/EspeakEngine.h"
#include "linux/sound/SoundDevice.h"
#include "voice/EngineBackend.h"
#include "voice/WavFile.h"

namespace brenwick {
namespace {

std::unique_ptr<SoundOutput> MakeOutput(const RealVoiceOptions& options, int sample_rate) {
  if (options.wav_file.empty()) return std::make_unique<SoundDevice>(sample_rate);
  const auto pace = options.as_heard ? WavFile::Pace::kAsHeard : WavFile::Pace::kAtOnce;
  return std::make_unique<WavFile>(options.wav_file, sample_rate, pace);
}

}  // namespace

std::unique_ptr<QueuedVoice> MakeRealVoice(const RealVoiceOptions& options) {
  auto engine = std::make_unique<EspeakEngine>();
  auto output = MakeOutput(options, engine->SampleRate());
  QueuedVoice::Backends backends;
  backends.push_back(std::make_unique<EngineBackend>(
      std::move(engine), std::move(output),
      EngineBackendOptions{.name = kEspeakName, .locale = options.locale}));
  return std::make_unique<QueuedVoice>(std::move(backends));
}

}  // namespace brenwick

// The library libespeak-ng, which keeps all its state in the process: one engine at a time.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "espeak/TimeStretch.h"
#include "voice/SpeechEngine.h"

namespace brenwick {

// What people call the engine.
inline constexpr const char* kEspeakName = "eSpeak NG";

class EspeakEngine : public SpeechEngine {
 public:
  // Raises kFileNotFound where the engine's data are missing, and kInvalidCall while there is
  // another engine in the process.
  EspeakEngine();
  ~EspeakEngine() override;

  int SampleRate() const override { return sample_rate_; }
  std::vector<EngineVoice> Voices(const std::string& locale) override;
  void Use(const std::string& voice, int rate, int volume) override;
  void Say(const std::string& piece, const Listener& listener) override;

  // For the library's callback: hands samples on, at the wanted rate.
  bool Deliver(std::span<const std::int16_t> samples);

 private:
  int sample_rate_;
  std::string voice_;
  double stretching_speed_ = 1;
  std::optional<TimeStretch> slow_;
  const Listener* listener_ = nullptr;
};

}  // namespace brenwick

// The library libespeak-ng, which keeps all its state in the process: one engine at a time.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "desktop/EspeakVoices.h"
#include "desktop/SlowSpeech.h"

namespace brenwick {

class EspeakEngine {
 public:
  // Receives the samples as they are made; false ends the speech.
  using Listener = std::function<bool(std::span<const std::int16_t>)>;

  // Raises kFileNotFound where the engine's data are missing, and kInvalidCall while there is
  // another engine in the process.
  EspeakEngine();
  ~EspeakEngine();
  EspeakEngine(const EspeakEngine&) = delete;
  EspeakEngine& operator=(const EspeakEngine&) = delete;

  int SampleRate() const { return sample_rate_; }
  std::vector<EspeakVoiceEntry> Voices(const std::string& locale) const;

  // What the coming texts are spoken with: an identifier from Voices(), −10..10, 0..100.
  void Use(const std::string& voice, int rate, int volume);

  // Speaks a text, which NextPiece has made, and returns when the listener has had all of it or
  // has returned false. Between two texts there is the pause between two sentences.
  void Say(const std::string& piece, const Listener& listener);

  // For the library's callback: hands samples on, at the wanted rate.
  bool Deliver(std::span<const std::int16_t> samples);

 private:
  int sample_rate_;
  std::string voice_;
  double stretching_speed_ = 1;
  std::optional<SlowSpeech> slow_;
  const Listener* listener_ = nullptr;
};

}  // namespace brenwick

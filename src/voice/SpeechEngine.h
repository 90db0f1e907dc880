// What makes speech of text, as the queue of EspeakVoice uses it: on one thread, piece by piece.
#pragma once

#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <vector>

#include "espeak/EspeakVoices.h"

namespace brenwick {

class SpeechEngine {
 public:
  // Receives the samples as they are made, mono; false ends the speech. An empty block asks whether
  // to go on.
  using Listener = std::function<bool(std::span<const std::int16_t>)>;

  SpeechEngine() = default;
  SpeechEngine(const SpeechEngine&) = delete;
  SpeechEngine& operator=(const SpeechEngine&) = delete;
  virtual ~SpeechEngine() = default;

  // Samples a second.
  virtual int SampleRate() const = 0;
  // In the order of ArrangedVoices.
  virtual std::vector<EspeakVoiceEntry> Voices(const std::string& locale) = 0;

  // What the coming texts are spoken with: an identifier from Voices(), −10..10, 0..100.
  virtual void Use(const std::string& voice, int rate, int volume) = 0;

  // Speaks a text, which NextPiece has made, and returns when the listener has had all of it or
  // has returned false. Between two texts there is the pause between two sentences.
  virtual void Say(const std::string& piece, const Listener& listener) = 0;

  // Nothing was said for a while.
  virtual void Rest() {}
};

}  // namespace brenwick

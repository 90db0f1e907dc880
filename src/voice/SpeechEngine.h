// Makes speech of text, piece by piece.
#pragma once

#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <vector>

#include "voice/EngineVoices.h"

namespace brenwick {

// An EngineBackend owns the engine. SampleRate and Voices are called on the thread that makes the
// backend, all others on the thread that speaks, never two at once.
class SpeechEngine {
 public:
  // Receives the samples as they are made, mono; false ends the speech. An empty block asks whether
  // to go on. It is called on the thread that speaks, within Say, and does not throw.
  using Listener = std::function<bool(std::span<const std::int16_t>)>;

  SpeechEngine() = default;
  SpeechEngine(const SpeechEngine&) = delete;
  SpeechEngine& operator=(const SpeechEngine&) = delete;
  virtual ~SpeechEngine() = default;

  // Samples a second, the same for as long as the engine lives. Does not throw.
  virtual int SampleRate() const = 0;

  // In the order of EngineVoicesFor; empty where the engine is too slow to list them. Raises a
  // Failure where the engine does not list them.
  virtual std::vector<EngineVoice> Voices(const std::string& locale) = 0;

  // What the coming texts are spoken with: an identifier from Voices(), −10..10, 0..100. Does not
  // throw; an empty identifier, or one that the engine does not know, leaves the former voice.
  virtual void Use(const std::string& voice, int rate, int volume) = 0;

  // Speaks a text, which NextPiece has made, and returns when the listener has had all of it or
  // has returned false. Between two texts there is the pause between two sentences. What the
  // engine cannot speak is left out; only a lack of memory throws.
  virtual void Say(const std::string& piece, const Listener& listener) = 0;

  // Why nothing of the last text could be spoken, in English; empty where the engine works, though
  // it may have left a text out. Does not throw.
  virtual std::string Trouble() const { return {}; }

  // Tidies up when nothing was said for a while. Returns soon, whatever the engine does. Does not
  // throw.
  virtual void Rest() {}
};

}  // namespace brenwick

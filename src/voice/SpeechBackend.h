// Who says sentences, one after the other, on the thread of a SpeechQueue.
#pragma once

#include <chrono>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/Connections.h"
#include "voice/StopToken.h"

namespace brenwick {

// How a sentence is said.
struct Prosody {
  std::optional<std::size_t> voice;  // an index into the speaker's own voices; none: its usual one
  int rate = 0;                      // −10..10
  int volume = 100;                  // 0..100
  bool try_anyway = false;           // even by a speaker that has failed a moment ago
};

class SpeechBackend {
 public:
  SpeechBackend() = default;
  SpeechBackend(const SpeechBackend&) = delete;
  SpeechBackend& operator=(const SpeechBackend&) = delete;
  virtual ~SpeechBackend() = default;

  // These are called on any thread.

  // A description of each of its voices. They stay the same.
  virtual const std::vector<std::string>& Voices() const = 0;
  // The language of that voice as a tag, such as "en-us".
  virtual std::string Language(std::size_t voice) const = 0;
  // Its voice that is the nearest to that language.
  virtual std::size_t VoiceFor(const std::string& language) const = 0;
  // What it is called and how it is.
  virtual Connection State() const = 0;
  // Raises a Failure where it will never speak again.
  virtual void ExpectSpeech() {}

  // All others are called on the thread that speaks alone.

  // Called once before everything else, for what takes a while.
  virtual void Prepare() {}

  // Says the text, which SpeakableText has made, and takes from its front what has been said. It
  // returns when the text lies ready to be heard, or soon after the sign has been raised. False
  // where it cannot speak; what is left of the text has not been said then.
  virtual bool Say(std::u32string_view& text, const Prosody& prosody, const StopToken& stop) = 0;

  // Forgets what was said and has not been heard yet.
  virtual void Cut() = 0;

  // Nothing follows for now: lets what was said be heard to its end, and returns how long that is
  // from now.
  virtual std::chrono::milliseconds Finish() = 0;

  // Nothing was said for a while, or somebody else speaks: gives back what others might want to
  // use.
  virtual void Rest() {}
};

}  // namespace brenwick

// Says sentences, one after the other, on the thread of a SpeechQueue.
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
  std::optional<std::size_t> voice;  // an index into the backend's own voices; none: its usual one
  int rate = 0;                      // −10..10
  int volume = 100;                  // 0..100
  bool try_anyway = false;           // even by a backend that has failed a moment ago
};

class SpeechBackend {
 public:
  SpeechBackend() = default;
  SpeechBackend(const SpeechBackend&) = delete;
  SpeechBackend& operator=(const SpeechBackend&) = delete;
  virtual ~SpeechBackend() = default;

  // These are called on any thread, also while the backend speaks. None of them waits.

  // A description of each of its voices. They stay the same. Does not throw.
  virtual const std::vector<std::string>& Voices() const = 0;
  // The language of that voice as a tag, such as "en-us". Raises std::out_of_range where there is
  // no such voice.
  virtual std::string Language(std::size_t voice) const = 0;
  // Its voice that is the nearest to that language; 0 where it has none. Does not throw.
  virtual std::size_t VoiceFor(const std::string& language) const = 0;
  // What it is called and how it is. Does not throw.
  virtual Connection State() const = 0;
  // Called on the program's thread before each sentence. Raises a Failure, which the program
  // reports, where the backend will never speak again.
  virtual void ExpectSpeech() {}

  // The queue calls all others, on the thread that speaks, and one at a time. Each of them may
  // raise any std::exception, and that never ends the queue: a Say that raises counts as one that
  // cannot speak, a Finish as one after which nothing sounds; the others count as done. A backend
  // that wants the user to know of it tells so itself and shows it in State().

  // Called once before everything else, for what takes a while.
  virtual void Prepare() {}

  // Says the text, which SpeakableText has made, and takes from its front what has been said. It
  // returns when the text lies ready to be heard, or soon after the stop was requested. False
  // where it cannot speak; what is left of the text has not been said then.
  virtual bool Say(std::u32string_view& text, const Prosody& prosody, const StopToken& stop) = 0;

  // Forgets what was said and has not been heard yet. Must not wait for it.
  virtual void Cut() = 0;

  // Called when nothing follows for now: lets what was said be heard to its end, and returns how
  // long that is from now.
  virtual std::chrono::milliseconds Finish() = 0;

  // Called when nothing was said for a while, or another backend speaks: gives back what others
  // might want to use.
  virtual void Rest() {}
};

}  // namespace brenwick

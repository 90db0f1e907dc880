// The speech engine: one object that is given a voice, a rate and a volume and then speaks.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace brenwick {

// Flags of SpVoice::Speak, added together.
enum SpeechVoiceSpeakFlags : int {
  SVSFlagsAsync = 1,         // return at once, speak behind what is queued
  SVSFPurgeBeforeSpeak = 2,  // first cut off what is being said and drop the queue
  SVSFIsXML = 8,             // the text may hold speech markup
};

// The program calls each operation on its own thread. None of them lets an event run. What they
// raise is a Failure, and nothing else.
class SpVoice {
 public:
  SpVoice() = default;
  SpVoice(const SpVoice&) = delete;
  SpVoice& operator=(const SpVoice&) = delete;
  virtual ~SpVoice() = default;

  // A description of each installed voice by which a person can choose one. The order is the same
  // at every call and at every start on one machine; empty when the engine has no voices. Raises
  // nothing, as Voice, Rate and Volume do.
  virtual const std::vector<std::string>& GetVoices() = 0;

  // Whether the list lacks voices because an engine was too slow to name them: the next start may
  // list them. The answer never changes. Raises nothing.
  virtual bool LacksVoices() const { return false; }

  // What the coming sentences are spoken with. Each setter raises kInvalidCall and leaves the
  // former value when the engine refuses: a voice that is not in the list, a rate outside −10..10
  // (0 is normal, +10 three times as fast, −10 a third), a volume outside 0..100.
  virtual void SetVoice(std::size_t index) = 0;
  virtual void SetRate(int rate) = 0;
  virtual void SetVolume(int volume) = 0;

  // The values in force. Voice() is an index into GetVoices(), 0 before the first SetVoice.
  virtual std::size_t Voice() const = 0;
  virtual int Rate() const = 0;
  virtual int Volume() const = 0;

  // Speaks the text with the voice, rate and volume of this moment; a later change does not touch
  // it. Returns at once and never waits for sound. An empty text with SVSFPurgeBeforeSpeak
  // silences the engine. Any text is taken, of any length; what the engine cannot take is the
  // implementation's business. Raises a Failure when the engine takes no more speech.
  virtual void Speak(const std::string& text, int flags) = 0;
};

}  // namespace brenwick

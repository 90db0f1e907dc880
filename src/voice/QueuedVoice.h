// A voice that has its sentences said by speakers, one behind the other, on a thread of its own.
#pragma once

#include <chrono>
#include <memory>
#include <string>
#include <vector>

#include "platform/SpVoice.h"
#include "voice/SpeechBackend.h"
#include "voice/SpeechQueue.h"

namespace brenwick {

class QueuedVoice : public SpVoice {
 public:
  // The list of voices is that of the first speaker, then that of the second, and so on. What
  // another speaker fails to say, the first one says in the nearest language it has.
  explicit QueuedVoice(std::vector<std::unique_ptr<SpeechBackend>> speakers);

  const std::vector<std::string>& GetVoices() override { return descriptions_; }
  void SetVoice(std::size_t index) override;
  void SetRate(int rate) override;
  void SetVolume(int volume) override;
  std::size_t Voice() const override { return voice_; }
  int Rate() const override { return prosody_.rate; }
  int Volume() const override { return prosody_.volume; }

  // SVSFlagsAsync changes nothing: it never waits. With SVSFIsXML entities in the text stand for
  // their characters; there are no tags.
  void Speak(const std::string& text, int flags) override;

  // Waits until all that was queued has been said and heard; false when the time is up first.
  bool WaitUntilSilent(std::chrono::milliseconds timeout) {
    return queue_.WaitUntilSilent(timeout);
  }

  // What speaks, and how each of them is.
  std::vector<Connection> Engines() const;
  // Speaks the sentence with this one alone, behind what is being said: where it fails, nobody
  // stands in.
  void TestEngine(std::size_t index, const std::string& sentence);

 protected:
  SpeechBackend& First() { return *speakers_.front(); }
  SpeechQueue& Queue() { return queue_; }

 private:
  // A place in the list.
  struct Place {
    SpeechBackend* speaker;
    std::size_t voice;
    SpeechBackend* stand_in;
    std::size_t stand_in_voice;
  };

  void ListVoices();

  const std::vector<std::unique_ptr<SpeechBackend>> speakers_;
  std::vector<std::string> descriptions_;
  std::vector<Place> places_;
  std::size_t voice_ = 0;
  Prosody prosody_;
  // The last, so that its thread has ended when the speakers go.
  SpeechQueue queue_;
};

}  // namespace brenwick

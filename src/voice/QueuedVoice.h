// The voice of the program: it has sentences said by its backends, one after the other, on a thread
// of its own.
#pragma once

#include <chrono>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/SpVoice.h"
#include "voice/SpeechBackend.h"
#include "voice/SpeechQueue.h"

namespace brenwick {

class QueuedVoice : public SpVoice {
 public:
  using Backends = std::vector<std::unique_ptr<SpeechBackend>>;

  // The list of voices is that of the first backend, then that of the second, and so on. What
  // another backend fails to say, the first one says in the nearest language it has. Where the
  // first one lists no voices, it speaks with its usual voice until SetVoice chooses another.
  // Without any backend the voice has an empty list and passes over every sentence.
  explicit QueuedVoice(Backends backends);

  const std::vector<std::string>& GetVoices() override { return descriptions_; }
  bool LacksVoices() const override;
  void SetVoice(std::size_t index) override;
  void SetRate(int rate) override;
  void SetVolume(int volume) override;
  std::size_t Voice() const override { return voice_.value_or(0); }
  int Rate() const override { return prosody_.rate; }
  int Volume() const override { return prosody_.volume; }

  // SVSFlagsAsync changes nothing: it never waits. With SVSFIsXML entities in the text stand for
  // their characters; there are no tags.
  void Speak(const std::string& text, int flags) override;

  // Waits until all that was queued has been said and heard; false when the time is up first.
  bool WaitUntilSilent(std::chrono::milliseconds timeout) {
    return queue_.WaitUntilSilent(timeout);
  }

  // Waits until the backends are prepared, and tells whether the first one can be heard.
  bool HasSound();

  // The backends, and how each of them is.
  std::vector<Connection> Engines() const;
  // Speaks the sentence with this backend alone, behind what is being said: where it fails, none
  // stands in.
  void TestEngine(std::size_t index, const std::string& sentence);

 private:
  // A voice of the list: which backend's it is, and which voice of the first backend stands in.
  struct ListedVoice {
    SpeechBackend* backend;
    std::optional<std::size_t> voice;  // none: the backend's usual one
    SpeechBackend* stand_in;
    std::size_t stand_in_voice;
  };

  void ListVoices();
  ListedVoice Chosen() const;

  const Backends backends_;
  std::vector<std::string> descriptions_;
  std::vector<ListedVoice> voices_;
  std::optional<std::size_t> voice_;  // none before the first SetVoice
  Prosody prosody_;
  // The last member, so that its thread has ended when the backends go.
  SpeechQueue queue_;
};

}  // namespace brenwick

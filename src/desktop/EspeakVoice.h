// Speech by eSpeak NG.
//
// A thread of its own takes sentence after sentence from a queue without bound, turns each into
// samples and hands them to the sound device or to a file; Speak only queues. A purge takes effect
// between two blocks of samples, at once, however long the text is.
//
// The text of a message is hostile until proved otherwise; EspeakText.h says what of it reaches
// the engine. No text is dropped for its length: a million letters are said for hours, or until
// the next purge.
//
// The library keeps its state in its process, so there is one EspeakVoice at a time that has the
// engine in its own; the next one can follow it.
#pragma once

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <deque>
#include <filesystem>
#include <functional>
#include <memory>
#include <mutex>
#include <span>
#include <string>
#include <thread>
#include <vector>

#include "desktop/SoundOutput.h"
#include "desktop/SpeechEngine.h"
#include "platform/SpVoice.h"

namespace brenwick {

struct EspeakOptions {
  // The user's locale, such as "en_GB.UTF-8": its voices come first in the list.
  std::string locale;
  // Where this is not empty, the speech goes into this WAV file instead of the sound device.
  std::filesystem::path wav_file = {};
  // The file is written only as fast as it would be heard, so that a purge cuts what would not
  // have been heard.
  bool as_heard = false;
  // Called once, on the thread that speaks, where there is no sound device at the start.
  std::function<void()> no_sound = {};
  // Makes another engine than the one in this process, which a hostile text might take down.
  std::function<std::unique_ptr<SpeechEngine>()> engine = {};
  // Makes another output than these two, for samples at the given rate.
  std::function<std::unique_ptr<SoundOutput>(int sample_rate)> output = {};
};

class EspeakVoice : public SpVoice {
 public:
  // What to tell the user while HasSound() is false.
  static constexpr const char* kNoSound =
      "There is no sound device. Brenwick goes on and will speak as soon as there is one.";

  // Raises kFileNotFound where the engine's data are not installed, kPathFileAccess where the WAV
  // file cannot be written, kInvalidCall while there is another EspeakVoice.
  explicit EspeakVoice(const EspeakOptions& options);
  // Stops in the middle of a word.
  ~EspeakVoice() override;

  const std::vector<std::string>& GetVoices() override { return descriptions_; }
  void SetVoice(std::size_t index) override;
  void SetRate(int rate) override;
  void SetVolume(int volume) override;
  std::size_t Voice() const override { return voice_; }
  int Rate() const override { return rate_; }
  int Volume() const override { return volume_; }

  // SVSFlagsAsync changes nothing: it never waits. With SVSFIsXML entities in the text stand for
  // their characters; there are no tags. Raises kPathFileAccess once the WAV file can no longer
  // be written, such as on a full disk.
  void Speak(const std::string& text, int flags) override;

  // False while there is no sound device: what is spoken then is not heard. The device is looked
  // for at the start, for which this waits, and again at every sentence.
  bool HasSound();

  // The voices to begin with.
  const VoicePair& Preferred() const { return preferred_; }

  // Waits until all that was queued has been said and heard, and the WAV file holds it; false when
  // the time is up first.
  bool WaitUntilSilent(std::chrono::milliseconds timeout);

 private:
  struct Sentence {
    std::string text;
    bool entities;
    std::size_t voice;
    int rate;
    int volume;
  };

  bool HasWork() const { return closing_ || cut_ || !queue_.empty(); }
  void Work(const std::function<void()>& no_sound);
  void WorkOnce(std::unique_lock<std::mutex>& lock);
  void FallSilent(std::unique_lock<std::mutex>& lock);
  void Say(const Sentence& sentence);
  bool Play(std::span<const std::int16_t> samples);

  std::unique_ptr<SpeechEngine> engine_;
  std::unique_ptr<SoundOutput> output_;
  const bool to_file_;
  std::vector<std::string> descriptions_;
  std::vector<std::string> identifiers_;
  VoicePair preferred_;

  std::size_t voice_ = 0;
  int rate_ = 0;
  int volume_ = 100;
  std::atomic<bool> has_sound_ = true;

  // These are shared with the thread that speaks; engine_ and output_ are its own from its start
  // to its end.
  std::mutex mutex_;
  std::condition_variable work_;
  std::condition_variable silence_;
  std::deque<Sentence> queue_;
  bool cut_ = false;      // a purge was asked for and has not taken effect yet
  bool closing_ = false;  // the thread is to end
  bool silent_ = true;
  bool looked_ = false;  // for a sound device
  std::thread thread_;
};

}  // namespace brenwick

// Says sentences by eSpeak NG, through the sound device or into a file.
//
// The text of a message is hostile until proved otherwise; EspeakText.h says what of it reaches
// the engine. No text is dropped for its length: a million letters are said for hours, or until
// the next purge.
#pragma once

#include <atomic>
#include <filesystem>
#include <functional>
#include <memory>
#include <span>
#include <string>
#include <vector>

#include "voice/SoundOutput.h"
#include "voice/SpeechBackend.h"
#include "voice/SpeechEngine.h"

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
  // Called, on the thread that speaks, when there is sound no more, or again.
  std::function<void()> changed = {};
  // Makes another engine than the one in this process, which a hostile text might take down.
  std::function<std::unique_ptr<SpeechEngine>()> engine = {};
  // Makes another output than these two, for samples at the given rate.
  std::function<std::unique_ptr<SoundOutput>(int sample_rate)> output = {};
};

class EspeakBackend final : public SpeechBackend {
 public:
  // What to tell the user while HasSound() is false.
  static constexpr const char* kNoSound =
      "There is no sound device. Brenwick goes on and will speak as soon as there is one.";

  // Raises kFileNotFound where the engine's data are not installed, kPathFileAccess where the WAV
  // file cannot be written.
  explicit EspeakBackend(const EspeakOptions& options);

  const std::vector<std::string>& Voices() const override { return descriptions_; }
  std::string Language(std::size_t voice) const override;
  std::size_t VoiceFor(const std::string& language) const override;
  Connection State() const override;
  // Raises kPathFileAccess once the WAV file can no longer be written, such as on a full disk.
  void ExpectSpeech() override;

  void Prepare() override;
  bool Say(std::u32string_view& text, const Prosody& prosody, const StopToken& stop) override;
  void Cut() override { output_->Cut(); }
  std::chrono::milliseconds Finish() override { return output_->Finish(); }
  void Rest() override {
    output_->Rest();
    engine_->Rest();
  }

  // False while there is no sound device. It is looked for by Prepare and at every sentence.
  bool HasSound() const { return has_sound_; }

  // The voices to begin with.
  const VoicePair& Preferred() const { return preferred_; }

 private:
  void LookForSound();
  bool Play(std::span<const std::int16_t> samples, const StopToken& stop);

  std::unique_ptr<SpeechEngine> engine_;
  std::unique_ptr<SoundOutput> output_;
  const bool to_file_;
  const std::function<void()> no_sound_;
  const std::function<void()> changed_;
  std::vector<std::string> descriptions_;
  std::vector<std::string> identifiers_;
  VoicePair preferred_;
  std::atomic<bool> has_sound_ = true;
};

}  // namespace brenwick

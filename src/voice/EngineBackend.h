// Says sentences by a speech engine that makes samples, through an output that takes them.
//
// The text of a message is hostile until proved otherwise; SpeakableText.h says what of it reaches
// the engine. No text is dropped for its length: a million letters are said for hours, or until
// the next purge.
#pragma once

#include <atomic>
#include <functional>
#include <memory>
#include <mutex>
#include <span>
#include <string>
#include <vector>

#include "voice/SoundOutput.h"
#include "voice/SpeechBackend.h"
#include "voice/SpeechEngine.h"

namespace brenwick {

struct EngineBackendOptions {
  // What people call the engine: "eSpeak NG".
  std::string name = {};
  // The user's locale, such as "en_GB.UTF-8": its voices come first in the list.
  std::string locale = {};
  // Called once, on the thread that speaks, where there is no sound at the start.
  std::function<void()> no_sound = {};
  // Called, on the thread that speaks, whenever State() has changed.
  std::function<void()> changed = {};
};

class EngineBackend final : public SpeechBackend {
 public:
  // What to tell the user where there is no sound.
  static constexpr const char* kNoSound =
      "There is no sound device. Brenwick goes on and will speak as soon as there is one.";

  // The output takes samples at the rate of the engine. Raises what SpeechEngine::Voices does.
  EngineBackend(std::unique_ptr<SpeechEngine> engine, std::unique_ptr<SoundOutput> output,
                EngineBackendOptions options);

  const std::vector<std::string>& Voices() const override { return descriptions_; }
  std::string Language(std::size_t voice) const override { return voices_.at(voice).language; }
  std::size_t VoiceFor(const std::string& language) const override;
  // Failed while there is no sound, which Prepare and every sentence look for, and while the engine
  // does not speak, which every sentence tries.
  Connection State() const override;
  // Raises kPathFileAccess once a file that takes the speech can no longer be written.
  void ExpectSpeech() override;

  void Prepare() override;
  bool Say(std::u32string_view& text, const Prosody& prosody, const StopToken& stop) override;
  void Cut() override { output_->Cut(); }
  std::chrono::milliseconds Finish() override { return output_->Finish(); }
  void Rest() override {
    output_->Rest();
    engine_->Rest();
  }

  // The voices to begin with.
  VoicePair Preferred() const { return PreferredVoices(voices_); }

 private:
  void LookForSound();
  bool EngineSpeaks();
  bool Play(std::span<const std::int16_t> samples, const StopToken& stop);

  const std::unique_ptr<SpeechEngine> engine_;
  const std::unique_ptr<SoundOutput> output_;
  const EngineBackendOptions options_;
  const std::vector<EngineVoice> voices_;
  std::vector<std::string> descriptions_;
  std::atomic<bool> has_sound_ = true;
  mutable std::mutex mutex_;
  std::string trouble_;  // why the engine does not speak; guarded by the mutex
};

}  // namespace brenwick

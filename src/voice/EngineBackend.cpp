#include "voice/EngineBackend.h"

#include <utility>

#include "base/Failure.h"
#include "voice/LanguageTag.h"
#include "voice/SpeakableText.h"

namespace brenwick {
namespace {

// How long an output that is full is left alone. Outputs hold several times as much.
constexpr std::chrono::milliseconds kRoomAgain{20};

}  // namespace

EngineBackend::EngineBackend(std::unique_ptr<SpeechEngine> engine,
                             std::unique_ptr<SoundOutput> output, EngineBackendOptions options)
    : engine_(std::move(engine)),
      output_(std::move(output)),
      options_(std::move(options)),
      voices_(engine_->Voices(options_.locale)) {
  for (const EngineVoice& voice : voices_) descriptions_.push_back(voice.description);
}

std::size_t EngineBackend::VoiceFor(const std::string& language) const {
  std::size_t nearest = 0;
  int least = kOtherLanguage;
  for (std::size_t voice = 0; voice < voices_.size(); ++voice) {
    const int distance = TagDistance(voices_[voice].language, language);
    if (distance >= least) continue;
    least = distance;
    nearest = voice;
  }
  return nearest;
}

Connection EngineBackend::State() const {
  if (!has_sound_) return {options_.name, ConnectionState::Failed, kNoSound};
  const std::lock_guard lock(mutex_);
  if (!trouble_.empty()) return {options_.name, ConnectionState::Failed, trouble_};
  return {options_.name, ConnectionState::Attached, ""};
}

void EngineBackend::ExpectSpeech() {
  if (has_sound_ || output_->MayComeBack()) return;
  throw Failure(kPathFileAccess, "The sound file can no longer be written", "Brenwick");
}

// Looking for the device takes a while, in which the program can start.
void EngineBackend::Prepare() {
  LookForSound();
  if (!has_sound_ && options_.no_sound) options_.no_sound();
}

// Without sound the sentence counts as said: no other backend would be heard either.
bool EngineBackend::Say(std::u32string_view& text, const Prosody& prosody, const StopToken& stop) {
  LookForSound();
  if (!has_sound_) return true;
  const std::string voice = voices_.empty() ? "" : voices_.at(prosody.voice.value_or(0)).identifier;
  engine_->Use(voice, prosody.rate, prosody.volume);
  while (!stop.StopRequested()) {
    std::u32string_view rest = text;
    const std::string piece = NextPiece(rest);
    if (!piece.empty()) {
      engine_->Say(piece,
                   [&](std::span<const std::int16_t> samples) { return Play(samples, stop); });
      if (!EngineSpeaks()) return false;
    }
    text = rest;
    if (piece.empty()) break;
  }
  return true;
}

// Whether the engine is in no trouble after a text.
bool EngineBackend::EngineSpeaks() {
  std::string trouble = engine_->Trouble();
  const bool speaks = trouble.empty();
  {
    const std::lock_guard lock(mutex_);
    if (trouble == trouble_) return speaks;
    trouble_ = std::move(trouble);
  }
  if (options_.changed) options_.changed();
  return speaks;
}

void EngineBackend::LookForSound() {
  const bool sound = output_->Ready();
  if (has_sound_.exchange(sound) != sound && options_.changed) options_.changed();
}

// Hands samples to the output while nobody asks to stop; false once somebody does.
bool EngineBackend::Play(std::span<const std::int16_t> samples, const StopToken& stop) {
  while (!samples.empty() && !stop.StopRequested()) {
    samples = samples.subspan(output_->Write(samples));
    if (!samples.empty()) stop.Await(kRoomAgain);
  }
  return !stop.StopRequested();
}

}  // namespace brenwick

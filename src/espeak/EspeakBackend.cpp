#include "espeak/EspeakBackend.h"

#include <algorithm>
#include <utility>

#include "base/Failure.h"
#include "base/Text.h"
#include "espeak/EspeakEngine.h"
#include "linux/sound/SoundDevice.h"
#include "voice/LanguageTag.h"
#include "voice/SpeakableText.h"
#include "voice/WavFile.h"

namespace brenwick {
namespace {

// How long an output that is full is left alone. Outputs hold several times as much.
constexpr std::chrono::milliseconds kRoomAgain{20};

std::unique_ptr<SoundOutput> MakeOutput(const EspeakOptions& options, int sample_rate) {
  if (options.output) return options.output(sample_rate);
  if (options.wav_file.empty()) return std::make_unique<SoundDevice>(sample_rate);
  const auto pace = options.as_heard ? WavFile::Pace::kAsHeard : WavFile::Pace::kAtOnce;
  return std::make_unique<WavFile>(options.wav_file, sample_rate, pace);
}

}  // namespace

EspeakBackend::EspeakBackend(const EspeakOptions& options)
    : engine_(options.engine ? options.engine() : std::make_unique<EspeakEngine>()),
      output_(MakeOutput(options, engine_->SampleRate())),
      to_file_(!options.wav_file.empty()),
      no_sound_(options.no_sound),
      changed_(options.changed) {
  std::vector<EspeakVoiceEntry> voices = engine_->Voices(options.locale);
  preferred_ = PreferredVoices(voices);
  for (EspeakVoiceEntry& voice : voices) {
    descriptions_.push_back(std::move(voice.description));
    identifiers_.push_back(std::move(voice.identifier));
  }
}

// The engine names its voices by family, language and variant: "gmw/en-US+f2".
std::string EspeakBackend::Language(std::size_t voice) const {
  const std::string& identifier = identifiers_.at(voice);
  const std::size_t start = identifier.rfind('/') + 1;
  return LowerCase(std::string_view(identifier).substr(start, identifier.find('+') - start));
}

std::size_t EspeakBackend::VoiceFor(const std::string& language) const {
  std::size_t nearest = 0;
  int least = kOtherLanguage;
  for (std::size_t voice = 0; voice < identifiers_.size(); ++voice) {
    const int distance = TagDistance(Language(voice), language);
    if (distance >= least) continue;
    least = distance;
    nearest = voice;
  }
  return nearest;
}

Connection EspeakBackend::State() const {
  if (has_sound_) return {"eSpeak NG", ConnectionState::Attached, ""};
  return {"eSpeak NG", ConnectionState::Failed, kNoSound};
}

void EspeakBackend::ExpectSpeech() {
  if (!to_file_ || has_sound_) return;
  throw Failure(kPathFileAccess, "The sound file can no longer be written", "Brenwick");
}

// Looking for the device takes a while, in which the program can start.
void EspeakBackend::Prepare() {
  LookForSound();
  if (!has_sound_ && no_sound_) no_sound_();
}

// What cannot be heard is left out: nobody else's sound would be.
bool EspeakBackend::Say(std::u32string_view& text, const Prosody& prosody, const StopToken& stop) {
  LookForSound();
  if (!has_sound_ || identifiers_.empty()) return true;
  engine_->Use(identifiers_.at(prosody.voice.value_or(0)), prosody.rate, prosody.volume);
  while (!stop.Raised()) {
    const std::string piece = NextPiece(text);
    if (piece.empty()) break;
    engine_->Say(piece, [&](std::span<const std::int16_t> samples) { return Play(samples, stop); });
  }
  return true;
}

void EspeakBackend::LookForSound() {
  const bool sound = output_->Ready();
  if (has_sound_.exchange(sound) != sound && changed_) changed_();
}

// Hands samples to the output while nobody asks to stop; false once somebody does.
bool EspeakBackend::Play(std::span<const std::int16_t> samples, const StopToken& stop) {
  while (!samples.empty() && !stop.Raised()) {
    samples = samples.subspan(output_->Write(samples));
    if (!samples.empty()) stop.Await(kRoomAgain);
  }
  return !stop.Raised();
}

}  // namespace brenwick

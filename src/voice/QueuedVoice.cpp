#include "voice/QueuedVoice.h"

#include <utility>

#include "base/Failure.h"
#include "voice/LanguageTag.h"

namespace brenwick {
namespace {

std::vector<SpeechBackend*> Pointers(const std::vector<std::unique_ptr<SpeechBackend>>& speakers) {
  std::vector<SpeechBackend*> pointers;
  pointers.reserve(speakers.size());
  for (const auto& speaker : speakers) pointers.push_back(speaker.get());
  return pointers;
}

}  // namespace

QueuedVoice::QueuedVoice(std::vector<std::unique_ptr<SpeechBackend>> speakers)
    : speakers_(std::move(speakers)), queue_(Pointers(speakers_)) {
  ListVoices();
}

void QueuedVoice::ListVoices() {
  SpeechBackend* const first = speakers_.front().get();
  for (const auto& speaker : speakers_) {
    const std::vector<std::string>& voices = speaker->Voices();
    descriptions_.insert(descriptions_.end(), voices.begin(), voices.end());
    for (std::size_t voice = 0; voice < voices.size(); ++voice) {
      Place place{speaker.get(), voice, nullptr, 0};
      if (speaker.get() != first) {
        place.stand_in = first;
        place.stand_in_voice = first->VoiceFor(LanguageTag(speaker->Language(voice)));
      }
      places_.push_back(place);
    }
  }
}

void QueuedVoice::SetVoice(std::size_t index) {
  if (index >= places_.size()) throw Failure(kInvalidCall);
  voice_ = index;
}

void QueuedVoice::SetRate(int rate) {
  if (rate < -10 || rate > 10) throw Failure(kInvalidCall);
  prosody_.rate = rate;
}

void QueuedVoice::SetVolume(int volume) {
  if (volume < 0 || volume > 100) throw Failure(kInvalidCall);
  prosody_.volume = volume;
}

void QueuedVoice::Speak(const std::string& text, int flags) {
  for (const auto& speaker : speakers_) speaker->ExpectSpeech();
  if ((flags & SVSFPurgeBeforeSpeak) != 0) queue_.Purge();
  if (text.empty() || places_.empty()) return;
  const Place& place = places_[voice_];
  Sentence sentence{text,     (flags & SVSFIsXML) != 0, place.speaker,
                    prosody_, place.stand_in,           prosody_};
  sentence.prosody.voice = place.voice;
  sentence.stand_in_prosody.voice = place.stand_in_voice;
  queue_.Add(std::move(sentence));
}

std::vector<Connection> QueuedVoice::Engines() const {
  std::vector<Connection> engines;
  for (const auto& speaker : speakers_) engines.push_back(speaker->State());
  return engines;
}

void QueuedVoice::TestEngine(std::size_t index, const std::string& sentence) {
  SpeechBackend& speaker = *speakers_.at(index);
  Prosody prosody = prosody_;
  prosody.voice.reset();
  prosody.try_anyway = true;
  if (!places_.empty() && places_[voice_].speaker == &speaker) {
    prosody.voice = places_[voice_].voice;
  } else if (!speaker.Voices().empty()) {
    prosody.voice = 0;
  }
  queue_.Add({.text = sentence, .speaker = &speaker, .prosody = prosody});
}

}  // namespace brenwick

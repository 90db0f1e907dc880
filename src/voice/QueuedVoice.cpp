#include "voice/QueuedVoice.h"

#include <utility>

#include "base/Failure.h"
#include "voice/LanguageTag.h"

namespace brenwick {
namespace {

std::vector<Speaker*> Pointers(const std::vector<std::unique_ptr<Speaker>>& speakers) {
  std::vector<Speaker*> pointers;
  pointers.reserve(speakers.size());
  for (const auto& speaker : speakers) pointers.push_back(speaker.get());
  return pointers;
}

}  // namespace

QueuedVoice::QueuedVoice(std::vector<std::unique_ptr<Speaker>> speakers)
    : speakers_(std::move(speakers)), queue_(Pointers(speakers_)) {
  ListVoices();
}

void QueuedVoice::ListVoices() {
  Speaker* const first = speakers_.front().get();
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
  manner_.rate = rate;
}

void QueuedVoice::SetVolume(int volume) {
  if (volume < 0 || volume > 100) throw Failure(kInvalidCall);
  manner_.volume = volume;
}

void QueuedVoice::Speak(const std::string& text, int flags) {
  for (const auto& speaker : speakers_) speaker->ExpectSpeech();
  if ((flags & SVSFPurgeBeforeSpeak) != 0) queue_.Purge();
  if (text.empty() || places_.empty()) return;
  const Place& place = places_[voice_];
  Sentence sentence{text,    (flags & SVSFIsXML) != 0, place.speaker,
                    manner_, place.stand_in,           manner_};
  sentence.manner.voice = place.voice;
  sentence.stand_in_manner.voice = place.stand_in_voice;
  queue_.Add(std::move(sentence));
}

std::vector<Connection> QueuedVoice::Engines() const {
  std::vector<Connection> engines;
  for (const auto& speaker : speakers_) engines.push_back(speaker->State());
  return engines;
}

void QueuedVoice::TestEngine(std::size_t index, const std::string& sentence) {
  Speaker& speaker = *speakers_.at(index);
  Manner manner = manner_;
  manner.voice.reset();
  manner.try_anyway = true;
  if (!places_.empty() && places_[voice_].speaker == &speaker) {
    manner.voice = places_[voice_].voice;
  } else if (!speaker.Voices().empty()) {
    manner.voice = 0;
  }
  queue_.Add({.text = sentence, .speaker = &speaker, .manner = manner});
}

}  // namespace brenwick

#include "voice/QueuedVoice.h"

#include <utility>

#include "base/Failure.h"
#include "voice/LanguageTag.h"

namespace brenwick {
namespace {

std::vector<SpeechBackend*> Pointers(const QueuedVoice::Backends& backends) {
  std::vector<SpeechBackend*> pointers;
  pointers.reserve(backends.size());
  for (const auto& backend : backends) pointers.push_back(backend.get());
  return pointers;
}

}  // namespace

QueuedVoice::QueuedVoice(Backends backends)
    : backends_(std::move(backends)), queue_(Pointers(backends_)) {
  ListVoices();
}

void QueuedVoice::ListVoices() {
  for (const auto& backend : backends_) {
    const std::vector<std::string>& voices = backend->Voices();
    descriptions_.insert(descriptions_.end(), voices.begin(), voices.end());
    for (std::size_t voice = 0; voice < voices.size(); ++voice) {
      ListedVoice listed{backend.get(), voice, nullptr, 0};
      if (backend != backends_.front()) {
        listed.stand_in = backends_.front().get();
        listed.stand_in_voice = listed.stand_in->VoiceFor(LanguageTag(backend->Language(voice)));
      }
      voices_.push_back(listed);
    }
  }
}

bool QueuedVoice::LacksVoices() const {
  return !backends_.empty() && backends_.front()->Voices().empty();
}

// What the coming sentences are said with. There is a backend.
QueuedVoice::ListedVoice QueuedVoice::Chosen() const {
  if (voice_) return voices_[*voice_];
  if (LacksVoices()) return {backends_.front().get(), std::nullopt, nullptr, 0};
  return voices_.front();
}

void QueuedVoice::SetVoice(std::size_t index) {
  if (index >= voices_.size()) throw Failure(kInvalidCall);
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
  for (const auto& backend : backends_) backend->ExpectSpeech();
  if ((flags & SVSFPurgeBeforeSpeak) != 0) queue_.Purge();
  if (text.empty() || backends_.empty()) return;
  const ListedVoice listed = Chosen();
  Sentence sentence{text,     (flags & SVSFIsXML) != 0, listed.backend,
                    prosody_, listed.stand_in,          prosody_};
  sentence.prosody.voice = listed.voice;
  sentence.stand_in_prosody.voice = listed.stand_in_voice;
  queue_.Add(std::move(sentence));
}

bool QueuedVoice::HasSound() {
  queue_.WaitUntilPrepared();
  return !backends_.empty() && backends_.front()->State().State == ConnectionState::Attached;
}

std::vector<Connection> QueuedVoice::Engines() const {
  std::vector<Connection> engines;
  for (const auto& backend : backends_) engines.push_back(backend->State());
  return engines;
}

void QueuedVoice::TestEngine(std::size_t index, const std::string& sentence) {
  SpeechBackend& backend = *backends_.at(index);
  Prosody prosody = prosody_;
  prosody.voice.reset();
  prosody.try_anyway = true;
  if (const ListedVoice chosen = Chosen(); chosen.backend == &backend) {
    prosody.voice = chosen.voice;
  } else if (!backend.Voices().empty()) {
    prosody.voice = 0;
  }
  queue_.Add({.text = sentence, .backend = &backend, .prosody = prosody});
}

}  // namespace brenwick

#include "desktop/EspeakVoice.h"

#include <utility>

#include "base/Failure.h"
#include "desktop/EspeakEngine.h"
#include "desktop/EspeakText.h"
#include "desktop/SoundDevice.h"
#include "desktop/WavFile.h"

namespace brenwick {
namespace {

// How long an output that is full is left alone. Outputs hold several times as much.
constexpr std::chrono::milliseconds kRoomAgain{20};

// After this much silence the sound device is given back.
constexpr std::chrono::seconds kRestAfter{10};

std::unique_ptr<SoundOutput> MakeOutput(const EspeakOptions& options, int sample_rate) {
  if (options.output) return options.output(sample_rate);
  if (options.wav_file.empty()) return std::make_unique<SoundDevice>(sample_rate);
  const auto pace = options.as_heard ? WavFile::Pace::kAsHeard : WavFile::Pace::kAtOnce;
  return std::make_unique<WavFile>(options.wav_file, sample_rate, pace);
}

}  // namespace

EspeakVoice::EspeakVoice(const EspeakOptions& options)
    : engine_(options.engine ? options.engine() : std::make_unique<EspeakEngine>()),
      output_(MakeOutput(options, engine_->SampleRate())),
      to_file_(!options.wav_file.empty()) {
  std::vector<EspeakVoiceEntry> voices = engine_->Voices(options.locale);
  preferred_ = PreferredVoices(voices);
  for (EspeakVoiceEntry& voice : voices) {
    descriptions_.push_back(std::move(voice.description));
    identifiers_.push_back(std::move(voice.identifier));
  }
  thread_ = std::thread([this, no_sound = options.no_sound] { Work(no_sound); });
}

EspeakVoice::~EspeakVoice() {
  {
    const std::lock_guard lock(mutex_);
    closing_ = true;
  }
  work_.notify_all();
  thread_.join();
}

void EspeakVoice::SetVoice(std::size_t index) {
  if (index >= descriptions_.size()) throw Failure(kInvalidCall);
  voice_ = index;
}

void EspeakVoice::SetRate(int rate) {
  if (rate < -10 || rate > 10) throw Failure(kInvalidCall);
  rate_ = rate;
}

void EspeakVoice::SetVolume(int volume) {
  if (volume < 0 || volume > 100) throw Failure(kInvalidCall);
  volume_ = volume;
}

void EspeakVoice::Speak(const std::string& text, int flags) {
  if (to_file_ && !has_sound_) {
    throw Failure(kPathFileAccess, "The sound file can no longer be written", "Brenwick");
  }
  const bool purge = (flags & SVSFPurgeBeforeSpeak) != 0;
  if (text.empty() && !purge) return;
  {
    const std::lock_guard lock(mutex_);
    if (purge) {
      queue_.clear();
      cut_ = true;
    }
    const bool entities = (flags & SVSFIsXML) != 0;
    if (!text.empty()) queue_.push_back({text, entities, voice_, rate_, volume_});
    silent_ = false;
  }
  work_.notify_all();
}

bool EspeakVoice::WaitUntilSilent(std::chrono::milliseconds timeout) {
  std::unique_lock lock(mutex_);
  return silence_.wait_for(lock, timeout, [this] { return silent_; });
}

bool EspeakVoice::HasSound() {
  std::unique_lock lock(mutex_);
  silence_.wait(lock, [this] { return looked_; });
  return has_sound_;
}

// The device is looked for here since that takes a while, in which the program can start.
void EspeakVoice::Work(const std::function<void()>& no_sound) {
  has_sound_ = output_->Ready();
  if (!has_sound_ && no_sound) no_sound();
  std::unique_lock lock(mutex_);
  looked_ = true;
  silence_.notify_all();
  while (!closing_) WorkOnce(lock);
}

// The lock is held between the steps of the work and free during each of them.
void EspeakVoice::WorkOnce(std::unique_lock<std::mutex>& lock) {
  if (cut_) {
    cut_ = false;
    lock.unlock();
    output_->Cut();
    lock.lock();
  } else if (!queue_.empty()) {
    const Sentence sentence = std::move(queue_.front());
    queue_.pop_front();
    lock.unlock();
    Say(sentence);
    lock.lock();
  } else {
    FallSilent(lock);
  }
}

// Returns as soon as there is something to do again.
void EspeakVoice::FallSilent(std::unique_lock<std::mutex>& lock) {
  const auto has_work = [this] { return HasWork(); };
  lock.unlock();
  const std::chrono::milliseconds sounding = output_->Finish();
  lock.lock();
  if (work_.wait_for(lock, sounding, has_work)) return;
  silent_ = true;
  silence_.notify_all();
  if (work_.wait_for(lock, kRestAfter, has_work)) return;
  lock.unlock();
  output_->Rest();
  lock.lock();
  work_.wait(lock, has_work);
}

void EspeakVoice::Say(const Sentence& sentence) {
  has_sound_ = output_->Ready();
  if (!has_sound_ || identifiers_.empty()) return;
  engine_->Use(identifiers_[sentence.voice], sentence.rate, sentence.volume);
  const std::u32string text = SpeakableText(sentence.text, sentence.entities);
  std::u32string_view rest = text;
  // An empty block asks whether to go on.
  while (Play({})) {
    const std::string piece = NextPiece(rest);
    if (piece.empty()) return;
    engine_->Say(piece, [this](std::span<const std::int16_t> samples) { return Play(samples); });
  }
}

// Hands samples to the output while there is no purge; false once there is one.
bool EspeakVoice::Play(std::span<const std::int16_t> samples) {
  std::unique_lock lock(mutex_);
  const auto stopped = [this] { return cut_ || closing_; };
  while (!samples.empty() && !stopped()) {
    lock.unlock();
    samples = samples.subspan(output_->Write(samples));
    lock.lock();
    if (!samples.empty()) work_.wait_for(lock, kRoomAgain, stopped);
  }
  return !stopped();
}

}  // namespace brenwick

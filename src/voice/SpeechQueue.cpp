#include "voice/SpeechQueue.h"

#include <utility>

#include "voice/SpeakableText.h"

namespace brenwick {
namespace {

// After this much silence the sound device is given back.
constexpr std::chrono::seconds kRestAfter{10};

}  // namespace

SpeechQueue::SpeechQueue(std::vector<SpeechBackend*> speakers)
    : speakers_(std::move(speakers)), thread_([this] { Work(); }) {}

SpeechQueue::~SpeechQueue() {
  {
    const std::lock_guard lock(mutex_);
    closing_ = true;
    stop_.RequestStop();
  }
  work_.notify_all();
  thread_.join();
}

void SpeechQueue::Add(Sentence sentence) {
  {
    const std::lock_guard lock(mutex_);
    sentences_.push_back(std::move(sentence));
    silent_ = false;
  }
  work_.notify_all();
}

void SpeechQueue::Purge() {
  {
    const std::lock_guard lock(mutex_);
    sentences_.clear();
    cut_ = true;
    silent_ = false;
    stop_.RequestStop();
  }
  work_.notify_all();
}

void SpeechQueue::WaitUntilPrepared() {
  std::unique_lock lock(mutex_);
  silence_.wait(lock, [this] { return prepared_; });
}

bool SpeechQueue::WaitUntilSilent(std::chrono::milliseconds timeout) {
  std::unique_lock lock(mutex_);
  return silence_.wait_for(lock, timeout, [this] { return silent_; });
}

void SpeechQueue::Work() {
  for (SpeechBackend* speaker : speakers_) speaker->Prepare();
  std::unique_lock lock(mutex_);
  prepared_ = true;
  silence_.notify_all();
  while (!closing_) WorkOnce(lock);
}

// The lock is held between the steps of the work and free during each of them.
void SpeechQueue::WorkOnce(std::unique_lock<std::mutex>& lock) {
  if (cut_) {
    cut_ = false;
    if (!closing_) stop_.Reset();
    lock.unlock();
    if (speaking_) speaking_->Cut();
    lock.lock();
  } else if (!sentences_.empty()) {
    const Sentence sentence = std::move(sentences_.front());
    sentences_.pop_front();
    lock.unlock();
    Say(sentence);
    lock.lock();
  } else {
    FallSilent(lock);
  }
}

// Returns as soon as there is something to do again.
void SpeechQueue::FallSilent(std::unique_lock<std::mutex>& lock) {
  const auto has_work = [this] { return HasWork(); };
  lock.unlock();
  const auto sounding = speaking_ ? speaking_->Finish() : std::chrono::milliseconds(0);
  lock.lock();
  if (work_.wait_for(lock, sounding, has_work)) return;
  silent_ = true;
  silence_.notify_all();
  if (work_.wait_for(lock, kRestAfter, has_work)) return;
  lock.unlock();
  for (SpeechBackend* speaker : speakers_) speaker->Rest();
  lock.lock();
  work_.wait(lock, has_work);
}

void SpeechQueue::Say(const Sentence& sentence) {
  const std::u32string text = SpeakableText(sentence.text, sentence.entities);
  std::u32string_view rest = text;
  if (Say(*sentence.speaker, rest, sentence.prosody) || !sentence.stand_in) return;
  Say(*sentence.stand_in, rest, sentence.stand_in_prosody);
}

bool SpeechQueue::Say(SpeechBackend& speaker, std::u32string_view& text, const Prosody& prosody) {
  if (speaking_ && speaking_ != &speaker) {
    if (stop_.Await(speaking_->Finish())) return true;
    speaking_->Rest();
  }
  speaking_ = &speaker;
  return speaker.Say(text, prosody, stop_);
}

}  // namespace brenwick

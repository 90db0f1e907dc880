#include "voice/SpeechQueue.h"

#include <exception>
#include <utility>

#include "voice/SpeakableText.h"

namespace brenwick {
namespace {

// After this much silence the sound device is given back.
constexpr std::chrono::seconds kRestAfter{10};

// The value of the call, or the other one where the call raises an exception: no backend ends the
// thread, and with it the program.
template <typename Call, typename Value>
Value Guarded(const Call& call, Value otherwise) {
  try {
    return call();
  } catch (const std::exception&) {
    return otherwise;
  }
}

template <typename Call>
void Guarded(const Call& call) {
  Guarded([&] { return call(), true; }, false);
}

std::chrono::milliseconds TimeToFinish(SpeechBackend& backend) {
  return Guarded([&] { return backend.Finish(); }, std::chrono::milliseconds(0));
}

}  // namespace

SpeechQueue::SpeechQueue(std::vector<SpeechBackend*> backends)
    : backends_(std::move(backends)), thread_([this] { Work(); }) {}

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
  Prepare();
  std::unique_lock lock(mutex_);
  prepared_ = true;
  silence_.notify_all();
  while (!closing_) WorkOnce(lock);
}

void SpeechQueue::Prepare() {
  for (SpeechBackend* backend : backends_) {
    Guarded([&] { backend->Prepare(); });
  }
}

// The lock is held between the steps of the work and free during each of them.
void SpeechQueue::WorkOnce(std::unique_lock<std::mutex>& lock) {
  if (cut_) {
    cut_ = false;
    if (!closing_) stop_.Reset();
    lock.unlock();
    if (speaking_) Guarded([&] { speaking_->Cut(); });
    lock.lock();
  } else if (!sentences_.empty()) {
    const Sentence sentence = std::move(sentences_.front());
    sentences_.pop_front();
    lock.unlock();
    Guarded([&] { Say(sentence); });
    lock.lock();
  } else {
    FallSilent(lock);
  }
}

// Returns as soon as there is something to do again.
void SpeechQueue::FallSilent(std::unique_lock<std::mutex>& lock) {
  const auto has_work = [this] { return HasWork(); };
  lock.unlock();
  const auto sounding = speaking_ ? TimeToFinish(*speaking_) : std::chrono::milliseconds(0);
  lock.lock();
  if (work_.wait_for(lock, sounding, has_work)) return;
  silent_ = true;
  silence_.notify_all();
  if (work_.wait_for(lock, kRestAfter, has_work)) return;
  lock.unlock();
  for (SpeechBackend* backend : backends_) {
    Guarded([&] { backend->Rest(); });
  }
  lock.lock();
  work_.wait(lock, has_work);
}

void SpeechQueue::Say(const Sentence& sentence) {
  const std::u32string text = SpeakableText(sentence.text, sentence.entities);
  std::u32string_view rest = text;
  if (Say(*sentence.backend, rest, sentence.prosody) || !sentence.stand_in) return;
  Say(*sentence.stand_in, rest, sentence.stand_in_prosody);
}

bool SpeechQueue::Say(SpeechBackend& backend, std::u32string_view& text, const Prosody& prosody) {
  if (speaking_ && speaking_ != &backend) {
    if (stop_.Await(TimeToFinish(*speaking_))) return true;
    Guarded([&] { speaking_->Rest(); });
  }
  speaking_ = &backend;
  return Guarded([&] { return backend.Say(text, prosody, stop_); }, false);
}

}  // namespace brenwick

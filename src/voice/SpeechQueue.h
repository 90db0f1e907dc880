// Keeps the sentences that are waiting to be said, and has them said on a thread of its own.
//
// There is one queue for all backends: each sentence is heard to its end before the next one
// begins, whichever backend says it. A purge takes effect at once, however long the sentence is.
// Where a backend raises an exception its stand-in says the sentence; the queue goes on.
#pragma once

#include <chrono>
#include <condition_variable>
#include <deque>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

#include "voice/SpeechBackend.h"

namespace brenwick {

struct Sentence {
  std::string text;
  bool entities = false;  // &amp; and its like stand for their characters
  SpeechBackend* backend = nullptr;
  Prosody prosody = {};
  // Says what the backend could not; nullptr: what the backend could not say is left out.
  SpeechBackend* stand_in = nullptr;
  Prosody stand_in_prosody = {};
};

// Its functions are called on the program's thread, and none of them throws but for a lack of
// memory.
class SpeechQueue {
 public:
  // Calls Prepare of each backend, in their order, before any of them says a sentence. They outlive
  // the queue.
  explicit SpeechQueue(std::vector<SpeechBackend*> backends);
  // Stops in the middle of a word.
  ~SpeechQueue();
  SpeechQueue(const SpeechQueue&) = delete;
  SpeechQueue& operator=(const SpeechQueue&) = delete;

  // Returns at once.
  void Add(Sentence sentence);
  // Cuts off what is being said and forgets what was waiting.
  void Purge();

  // Waits until the backends are prepared.
  void WaitUntilPrepared();
  // Waits until all that was added has been said and heard; false when the time is up first.
  bool WaitUntilSilent(std::chrono::milliseconds timeout);

 private:
  bool HasWork() const { return closing_ || cut_ || !sentences_.empty(); }
  void Work();
  void WorkOnce(std::unique_lock<std::mutex>& lock);
  void FallSilent(std::unique_lock<std::mutex>& lock);
  void Prepare();
  void Say(const Sentence& sentence);
  bool Say(SpeechBackend& backend, std::u32string_view& text, const Prosody& prosody);

  const std::vector<SpeechBackend*> backends_;
  SpeechBackend* speaking_ = nullptr;  // the last one that did

  // These are shared with the thread that speaks.
  std::mutex mutex_;
  std::condition_variable work_;
  std::condition_variable silence_;
  std::deque<Sentence> sentences_;
  bool cut_ = false;      // a purge was asked for and has not taken effect yet
  bool closing_ = false;  // the thread is to end
  bool silent_ = true;
  bool prepared_ = false;
  StopToken stop_;  // raised while cut_ or closing_ is set
  std::thread thread_;
};

}  // namespace brenwick

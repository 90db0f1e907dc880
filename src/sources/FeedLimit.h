// How many events each sender of the feed may raise.
#pragma once

#include <chrono>
#include <cstddef>
#include <deque>
#include <functional>
#include <list>
#include <string>

namespace brenwick {

enum class Admission {
  Granted,
  TooMany,         // of this sender, in the last second
  TooManySenders,  // at the same time
};

// What is refused does not count. Of a sender that has raised nothing for a second nothing is
// remembered.
class FeedLimit {
 public:
  using Time = std::chrono::steady_clock::time_point;

  static constexpr std::size_t kMostEvents = 50;  // of one sender in any second
  static constexpr std::size_t kMostSenders = 200;

  // The clock is asked at each event.
  explicit FeedLimit(std::function<Time()> now) : now_(std::move(now)) {}

  Admission Admit(const std::string& sender);

  // Of how many senders something is remembered.
  std::size_t Senders() const { return senders_.size(); }

 private:
  struct Sender {
    std::string name;
    std::deque<Time> events;
  };

  void Forget(Time now);

  std::function<Time()> now_;
  std::list<Sender> senders_;  // the one that was granted something last at the end
};

}  // namespace brenwick

#include "sources/FeedLimit.h"

#include <algorithm>

namespace brenwick {
namespace {

constexpr std::chrono::seconds kSecond(1);

}  // namespace

Admission FeedLimit::Admit(const std::string& sender) {
  const Time now = now_();
  Forget(now);
  auto known = std::find_if(senders_.begin(), senders_.end(),
                            [&sender](const Sender& each) { return each.name == sender; });
  if (known == senders_.end()) {
    if (senders_.size() >= kMostSenders) return Admission::TooManySenders;
    known = senders_.insert(senders_.end(), {sender, {}});
  }
  std::deque<Time>& events = known->events;
  while (!events.empty() && now - events.front() >= kSecond) events.pop_front();
  if (events.size() >= kMostEvents) return Admission::TooMany;
  events.push_back(now);
  senders_.splice(senders_.end(), senders_, known);
  return Admission::Granted;
}

void FeedLimit::Forget(Time now) {
  while (!senders_.empty() && now - senders_.front().events.back() >= kSecond) {
    senders_.pop_front();
  }
}

}  // namespace brenwick

// Decides which events scripts may raise, and how many.
#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <functional>
#include <list>
#include <optional>
#include <set>
#include <string>
#include <variant>

#include "platform/MessengerClient.h"

namespace brenwick {

// A message or, where `state` has a value, a change of the contact's state.
struct FeedEvent {
  MessengerContact contact;
  std::string text;
  std::optional<std::int32_t> state;
};

// Why an event is refused.
struct FeedError {
  std::string name;  // the last part of the error's name on the bus: "InvalidText"
  std::string message;
};

// Belongs to one thread, whichever it is.
class FeedRules {
 public:
  using Time = std::chrono::steady_clock::time_point;
  using Result = std::variant<FeedEvent, FeedError>;

  static constexpr std::size_t kLongestName = 1024;  // bytes; of sign-in names as well
  static constexpr std::size_t kLongestText = 64 * 1024;
  // In one run of the program. Each contact takes a place in the contact list, which is limited.
  static constexpr std::size_t kMostContacts = 1'000;
  static constexpr std::size_t kMostEvents = 50;  // of one sender in any second
  static constexpr std::size_t kMostSenders = 200;

  // now: the clock, asked at each event.
  explicit FeedRules(std::function<Time()> now) : now_(std::move(now)) {}

  // The event that a script calls for; all texts are valid UTF-8. A contact without a display name
  // goes by the sign-in name, and no contact is called like the mail service.
  static Result Message(const MessengerContact& contact, const std::string& text);
  // state: the state by its name, such as "away".
  static Result State(const MessengerContact& contact, const std::string& state);

  // Nothing where this sender may raise this event now; from then on the contact is known. An event
  // that is refused does not count. A sender that raises nothing for a second is forgotten.
  std::optional<FeedError> Admit(const std::string& sender, const FeedEvent& event);
  // The same for an event by which the feed itself is tried: it has no contact.
  std::optional<FeedError> AdmitTest(const std::string& sender);

  // True for the sign-in name of a contact of whom an event was admitted.
  bool Knows(const std::string& contact) const { return contacts_.contains(contact); }
  // The number of senders that are remembered.
  std::size_t Senders() const { return senders_.size(); }

 private:
  struct Sender {
    std::string name;
    std::deque<Time> events;
  };

  void ForgetSenders(Time now);

  std::function<Time()> now_;
  std::list<Sender> senders_;  // the one that was admitted last at the end
  std::set<std::string> contacts_;
};

}  // namespace brenwick

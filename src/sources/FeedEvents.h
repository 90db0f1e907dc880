// What scripts may raise: the events of the feed, and what is wrong with them.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "platform/MessengerClient.h"

namespace brenwick {

inline constexpr std::size_t kLongestFeedName = 1024;  // bytes; of sign-in names as well
inline constexpr std::size_t kLongestFeedText = 64 * 1024;

// Why an event is refused.
struct FeedError {
  std::string name;  // the last part of the error's name on the bus: "InvalidText"
  std::string message;
};

std::optional<FeedError> CheckContact(const MessengerContact& contact);
std::optional<FeedError> CheckText(const std::string& text);

// Who is meant: without a display name the sign-in name is shown, and nobody but the mail service
// is called like it.
MessengerContact FeedContact(const MessengerContact& contact);

// The state by its name, such as "away"; nothing where there is none of this name.
std::optional<std::int32_t> FeedState(const std::string& name);
// All of their names, as they are told to who uses another.
std::string FeedStateNames();

}  // namespace brenwick

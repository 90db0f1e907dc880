// The messenger events that a script can raise.
#pragma once

#include <functional>
#include <nlohmann/json.hpp>

#include "platform/MessengerClient.h"

namespace brenwick {

// The event that a "raise" step names, with its arguments read. An argument that is
// left out is empty, or 0. Raises ScriptFailure for an unknown event, for an argument that the
// event does not take, and for one of the wrong type.
std::function<void(MessengerListener&)> EventOf(const nlohmann::json& step);

}  // namespace brenwick

// The messenger events that a script can raise.
#pragma once

#include <functional>
#include <nlohmann/json.hpp>

#include "platform/MessengerClient.h"

namespace brenwick {

// The event that a "raise" step names, with its arguments read. Raises ScriptFailure for an unknown
// event and for arguments of the wrong type.
std::function<void(MessengerListener&)> EventOf(const nlohmann::json& step);

}  // namespace brenwick

// Starting speech-dispatcher, the way its own clients do.
#pragma once

#include <string>

#include "voice/StopToken.h"

namespace brenwick {

// Starts the server at that socket unless its settings forbid that, and returns when it takes
// connections; false where it does not start. It ends by itself some seconds after its last client.
// It also returns false soon after the stop was requested.
bool StartDispatcher(const std::string& socket, const StopToken& stop);

}  // namespace brenwick

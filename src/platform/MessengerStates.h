// The fixed facts of each messenger state.
#pragma once

#include <cstdint>

#include "platform/MessengerClient.h"

namespace brenwick {

struct StateFacts {
  std::int32_t state;
  const char* name;   // "MSTATE_ONLINE"
  bool signed_in;     // a user in this state counts as signed in
  std::int32_t code;  // the state code that the contact list keeps
  bool announced;     // a contact's change to this state may be said
};

// The facts of a state. States that the program does not know share one row, whose name is
// "MSTATE_IS_UNKNOWN". Any thread may call it; it cannot fail.
const StateFacts& FactsOf(std::int32_t state);
bool IsKnownState(std::int32_t state);

}  // namespace brenwick

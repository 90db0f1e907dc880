// What each messenger state means to the program.
#pragma once

#include <cstdint>
#include <string>

#include "forms/frmMain.h"
#include "language/TextTable.h"
#include "logging/Logs.h"

namespace brenwick {

// How a contact's state is put into words: a text of the language, or one of the user's own
// phrases.
using StatePhrase = std::string (*)(const TextTable&, const frmMain&);

struct StateRow {
  std::int32_t state;
  const char* name;
  bool signed_in;
  StatePhrase phrase;
  std::int32_t code;  // the state code that the contact list keeps
  bool announced;
};

// The row of a state; states that the program does not know share one row, whose name is
// "MSTATE_IS_UNKNOWN".
const StateRow& FindState(std::int32_t state);
bool IsKnownState(std::int32_t state);

// True for the states in which the user counts as signed in.
bool DetermineState(Logs& log, std::int32_t state);

}  // namespace brenwick

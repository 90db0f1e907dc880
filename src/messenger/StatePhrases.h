// The words for a contact's state, and whether the user counts as signed in.
#pragma once

#include <cstdint>
#include <string>

#include "language/TextTable.h"
#include "logging/Logs.h"
#include "settings/SettingsValues.h"

namespace brenwick {

// The words for a contact's state: a text of the language, or one of the user's own phrases. Empty
// for states of the client's own connection, "Unknown" for a number that is no state.
std::string PhraseOf(std::int32_t state, const TextTable& texts, const SettingsValues& settings);

// True for the states in which the user counts as signed in.
bool DetermineState(Logs& log, std::int32_t state);

}  // namespace brenwick

// One rehearsal from its folders to its end, as a command line describes it.
#pragma once

#include <ostream>
#include <string>

#include "rehearsal/Options.h"
#include "rehearsal/PlayScript.h"
#include "rehearsal/Spectator.h"

namespace brenwick {

// Plays the script of the options ("-": standard input). What goes wrong with it is told to
// `errors`. Raises std::runtime_error, in words for the user, for what is missing.
ExitStatus Rehearse(const RehearsalOptions& options, std::ostream& transcript, std::ostream& errors,
                    Spectator* spectator = nullptr);

// The user's locale, as the environment has it.
std::string Locale();

}  // namespace brenwick

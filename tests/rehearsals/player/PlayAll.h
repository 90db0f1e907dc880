// The command line of the programs that play all rehearsals in one process.
#pragma once

#include <string>
#include <vector>

#include "rehearsals/player/Player.h"

namespace brenwick {

// Plays the cases that the arguments name, one behind the other, tells on standard output what is
// not as expected, and ends with a count. The exit status: 0 when all went well, 1 when one did not
// or none was played, 2 for arguments that nobody knows.
int PlayAll(const std::vector<std::string>& arguments, Spectator* spectator);

}  // namespace brenwick

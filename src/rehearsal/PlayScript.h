// A whole script, from its first line to its last or to the one that cannot be carried out.
#pragma once

#include <istream>
#include <ostream>
#include <string>

#include "rehearsal/Rehearsal.h"

namespace brenwick {

enum ExitStatus : int {
  kDone = 0,          // also when the program ended on the way
  kMissing = 1,       // a file, a folder or the engine
  kWrong = 2,         // the script or the command line
  kProgramFault = 3,  // the program let out an exception
};

// name: what the script is called in "name:line: what is wrong", which goes to `errors`. The script
// ends early where the transcript takes no more, and behind an interruption. Raises
// std::runtime_error, in words for the user, when the script cannot be read to its end or the
// transcript cannot be written.
ExitStatus PlayScript(Rehearsal& rehearsal, std::istream& script, const std::string& name,
                      std::ostream& transcript, std::ostream& errors);

}  // namespace brenwick

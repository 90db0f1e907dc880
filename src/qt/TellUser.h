// Tells the user something that wants no answer.
#pragma once

#include <string>

namespace brenwick {

// Writes the message to the terminal, and shows it in a box of its own as soon as events run.
// Called on the program's thread; it does not wait and does not throw.
void TellUser(const std::string& message);

}  // namespace brenwick

// What the user has to know though nobody asked.
#pragma once

#include <string>

namespace brenwick {

// Writes the message to the terminal, and shows it in a box of its own as soon as the program lets
// events run. It does not wait and does not throw.
void TellUser(const std::string& message);

}  // namespace brenwick

// Text from a script or a message, on its way to a person's terminal.
#pragma once

#include <string>
#include <string_view>

namespace brenwick {

// The text on one line and without anything that a terminal would obey: line ends and tabs become a
// space, every other control character U+FFFD. Spaces at its end are left out.
std::string PlainText(std::string_view text);

}  // namespace brenwick

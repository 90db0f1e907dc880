// Language files whatever the case of their names, as some systems tell "A.TML" from "a.tml".
#pragma once

#include <string>

#include "platform/Folders.h"

namespace brenwick {

// The file with that path, or the first one in its folder whose name differs in upper and lower
// case only; "" where there is none.
std::string FindFile(Folders& folders, const std::string& path);

}  // namespace brenwick

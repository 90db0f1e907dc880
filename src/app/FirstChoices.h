// What a new user of the desktop program begins with.
#pragma once

#include <string>

#include "platform/RegistryStore.h"

namespace brenwick {

// Stores the descriptions of a male and a female voice as the chosen ones in a store that has
// nothing of the program's, and leaves any other store alone: without the choice both lists would
// begin with the same voice. An empty description is not stored. It has to be called before the
// program reads its settings.
void StoreFirstChoices(RegistryStore& store, const std::string& maleVoice,
                       const std::string& femaleVoice);

}  // namespace brenwick

// What a new user of the desktop program begins with.
#pragma once

#include <string>

#include "platform/RegistryStore.h"

namespace brenwick {

// Stores the descriptions of a male and a female voice as the chosen ones: without the choice both
// lists would begin with the same voice. Leaves a store alone that holds settings of the program,
// unless these are settings of voices without either choice. An empty description is not stored.
// It has to be called before the program reads its settings.
void StoreFirstChoices(RegistryStore& store, const std::string& maleVoice,
                       const std::string& femaleVoice);

}  // namespace brenwick

// The voices of a user who has chosen none yet.
#pragma once

#include "espeak/EspeakVoices.h"
#include "platform/RegistryStore.h"

namespace brenwick {

// Stores the pair as the chosen voices in a store that has nothing of the program's, and leaves any
// other alone: without it both lists would begin with the same voice. To be called before the
// program reads its settings.
void StoreFirstVoices(RegistryStore& store, const VoicePair& voices);

}  // namespace brenwick

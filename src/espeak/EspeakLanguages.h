// The languages that libespeak-ng speaks.
#pragma once

#include <vector>

#include "voice/EngineVoices.h"

namespace brenwick {

// The languages of the library, which must have been started, without those that cannot be relied
// on.
std::vector<EngineLanguage> InstalledLanguages();

}  // namespace brenwick

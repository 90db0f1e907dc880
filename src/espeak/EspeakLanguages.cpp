#include "espeak/EspeakLanguages.h"

#include <espeak-ng/speak_lib.h>

#include <cstring>
#include <string>
#include <string_view>
#include <utility>

#include "base/Text.h"

namespace brenwick {
namespace {

// The library lists every voice as male. This variant of each sounds like a woman: its pitch is
// near 200 Hz where the voice's own is near 100.
constexpr const char* kFemaleVariant = "+f2";

// These belong to another engine. Where its data are missing, choosing one silences this one.
constexpr const char* kOtherEngine = "mb/";

// Kyrgyz crashes on ordinary words ("v'zb", "l?s(") and would take the process with it.
constexpr const char* kCrashing = "trk/ky";

// The library writes its list of tags as a priority byte and a text each, and a zero byte at the
// end.
std::vector<std::pair<int, std::string>> ReadTags(const char* list) {
  std::vector<std::pair<int, std::string>> tags;
  while (list && *list != 0) {
    tags.emplace_back(*list, list + 1);
    list += 2 + std::strlen(list + 1);
  }
  return tags;
}

// The library names its voices by family and language: "gmw/en-US".
std::string LanguageIn(const std::string& identifier) {
  return LowerCase(std::string_view(identifier).substr(identifier.rfind('/') + 1));
}

}  // namespace

std::vector<EngineLanguage> InstalledLanguages() {
  std::vector<EngineLanguage> languages;
  constexpr unsigned char kFemale = 2;
  for (const espeak_VOICE** voice = espeak_ListVoices(nullptr); voice && *voice; ++voice) {
    const std::string identifier = Repaired((*voice)->identifier);
    if (identifier.starts_with(kOtherEngine) || identifier == kCrashing) continue;
    languages.push_back({std::string(Trimmed(Repaired((*voice)->name))), identifier,
                         LanguageIn(identifier), ReadTags((*voice)->languages),
                         (*voice)->gender == kFemale, kFemaleVariant});
  }
  return languages;
}

}  // namespace brenwick

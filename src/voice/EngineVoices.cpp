#include "voice/EngineVoices.h"

#include <algorithm>
#include <set>
#include <tuple>

#include "voice/LanguageTag.h"

namespace brenwick {
namespace {

// The lower, the better the language suits the wanted tag.
int Distance(const EngineLanguage& language, const std::string& wanted) {
  int least = kOtherLanguage;
  for (const auto& [priority, tag] : language.tags) {
    const int distance = TagDistance(tag, wanted);
    if (distance < kOtherLanguage) least = std::min(least, distance + priority);
  }
  return least;
}

void AppendVoices(std::vector<EngineVoice>& voices, const EngineLanguage& language,
                  const std::string& engine) {
  const auto append = [&](const char* kind, const std::string& variant, bool female) {
    voices.push_back({language.name + ", " + kind + ": " + engine, language.identifier + variant,
                      language.tag, female});
  };
  if (language.female) {
    append("female", "", true);
    return;
  }
  append("male", "", false);
  if (!language.female_variant.empty()) append("female", language.female_variant, true);
}

}  // namespace

std::vector<EngineVoice> EngineVoicesFor(const std::string& locale, const std::string& engine,
                                         std::vector<EngineLanguage> languages) {
  const std::string wanted = LanguageTag(locale);
  std::sort(languages.begin(), languages.end(), [&](const auto& a, const auto& b) {
    return std::tuple(Distance(a, wanted), a.name, a.identifier) <
           std::tuple(Distance(b, wanted), b.name, b.identifier);
  });
  std::vector<EngineVoice> voices;
  std::set<std::string> names;
  for (const EngineLanguage& language : languages) {
    if (names.insert(language.name).second) AppendVoices(voices, language, engine);
  }
  return voices;
}

VoicePair PreferredVoices(const std::vector<EngineVoice>& voices) {
  VoicePair pair;
  for (const EngineVoice& voice : voices) {
    std::string& first = voice.female ? pair.female : pair.male;
    if (first.empty()) first = voice.description;
  }
  return pair;
}

}  // namespace brenwick

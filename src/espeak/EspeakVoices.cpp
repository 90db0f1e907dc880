#include "espeak/EspeakVoices.h"

#include <espeak-ng/speak_lib.h>

#include <algorithm>
#include <cstring>
#include <set>
#include <string_view>
#include <tuple>

#include "base/Text.h"
#include "voice/LanguageTag.h"

namespace brenwick {
namespace {

// The engine lists every voice as male. This variant of each sounds like a woman: its pitch is
// near 200 Hz where the voice's own is near 100.
constexpr const char* kFemaleVariant = "+f2";

// These belong to another engine. Where its data are missing, choosing one silences this one.
constexpr const char* kOtherEngine = "mb/";

// Kyrgyz crashes on ordinary words ("v'zb", "l?s(") and would take the process with it.
constexpr const char* kCrashing = "trk/ky";

// The lower, the better the language suits the wanted tag.
int Distance(const EspeakLanguage& language, const std::string& wanted) {
  int least = kOtherLanguage;
  for (const auto& [priority, tag] : language.tags) {
    const int distance = TagDistance(tag, wanted);
    if (distance < kOtherLanguage) least = std::min(least, distance + priority);
  }
  return least;
}

// The engine writes its list of tags as a priority byte and a text each, and a zero byte at the
// end.
std::vector<std::pair<int, std::string>> ReadTags(const char* list) {
  std::vector<std::pair<int, std::string>> tags;
  while (list && *list != 0) {
    tags.emplace_back(*list, list + 1);
    list += 2 + std::strlen(list + 1);
  }
  return tags;
}

void AppendVoices(std::vector<EspeakVoiceEntry>& voices, const EspeakLanguage& language) {
  const auto append = [&](const char* kind, const char* variant, bool female) {
    voices.push_back(
        {language.name + ", " + kind + ": eSpeak NG", language.identifier + variant, female});
  };
  if (language.female) {
    append("female", "", true);
    return;
  }
  append("male", "", false);
  append("female", kFemaleVariant, true);
}

}  // namespace

std::vector<EspeakVoiceEntry> ArrangedVoices(std::vector<EspeakLanguage> languages,
                                             const std::string& locale) {
  const std::string wanted = LanguageTag(locale);
  std::sort(languages.begin(), languages.end(), [&](const auto& a, const auto& b) {
    return std::tuple(Distance(a, wanted), a.name, a.identifier) <
           std::tuple(Distance(b, wanted), b.name, b.identifier);
  });
  std::vector<EspeakVoiceEntry> voices;
  std::set<std::string> names;
  for (const EspeakLanguage& language : languages) {
    if (names.insert(language.name).second) AppendVoices(voices, language);
  }
  return voices;
}

VoicePair PreferredVoices(const std::vector<EspeakVoiceEntry>& voices) {
  VoicePair pair;
  for (const EspeakVoiceEntry& voice : voices) {
    std::string& first = voice.female ? pair.female : pair.male;
    if (first.empty()) first = voice.description;
  }
  return pair;
}

std::vector<EspeakLanguage> InstalledLanguages() {
  std::vector<EspeakLanguage> languages;
  constexpr unsigned char kFemale = 2;
  for (const espeak_VOICE** voice = espeak_ListVoices(nullptr); voice && *voice; ++voice) {
    const std::string identifier = Repaired((*voice)->identifier);
    if (identifier.starts_with(kOtherEngine) || identifier == kCrashing) continue;
    languages.push_back({std::string(Trimmed(Repaired((*voice)->name))), identifier,
                         ReadTags((*voice)->languages), (*voice)->gender == kFemale});
  }
  return languages;
}

}  // namespace brenwick

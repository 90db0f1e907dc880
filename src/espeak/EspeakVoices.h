// The voices that the engine has, as a person chooses among them.
#pragma once

#include <string>
#include <utility>
#include <vector>

namespace brenwick {

// A language as the engine lists it: one voice, spoken for one or more language tags ("en-gb",
// "en"), the better suited the lower the number beside the tag.
struct EspeakLanguage {
  std::string name;        // "English (Great Britain)"
  std::string identifier;  // the engine's own name of the voice, "gmw/en"
  std::vector<std::pair<int, std::string>> tags;
  bool female = false;
};

struct EspeakVoiceEntry {
  std::string description;  // "English (Great Britain), female: eSpeak NG"
  std::string identifier;   // "gmw/en+f2"
  bool female;
};

// Descriptions of a male and a female voice; empty where there is none.
struct VoicePair {
  std::string male;
  std::string female;
};

// Each language's voices, male before female. The voices of the locale's language come first, its
// region's before others'; behind them all others by name. A locale is written like "en_GB.UTF-8";
// an empty one, "C" and "POSIX" mean British English, the engine's own default. No description
// occurs twice.
std::vector<EspeakVoiceEntry> ArrangedVoices(std::vector<EspeakLanguage> languages,
                                             const std::string& locale);

// The first of each kind, which suit a user best who has chosen none.
VoicePair PreferredVoices(const std::vector<EspeakVoiceEntry>& voices);

// The languages of the engine, which must be running, without those that cannot be relied on.
std::vector<EspeakLanguage> InstalledLanguages();

}  // namespace brenwick

// The voices of a speech engine, as a person chooses among them.
#pragma once

#include <string>
#include <utility>
#include <vector>

namespace brenwick {

// A language as an engine lists it: one voice, spoken for one or more language tags ("en-gb",
// "en"), the better suited the lower the number beside the tag.
struct EngineLanguage {
  std::string name;        // "English (Great Britain)"
  std::string identifier;  // the engine's own name of the voice, "gmw/en-US"
  std::string tag;         // the language itself, "en-us"
  std::vector<std::pair<int, std::string>> tags;
  bool female = false;
  // Behind the identifier of a male voice it makes a female one of it; empty where nothing does.
  std::string female_variant = {};
};

struct EngineVoice {
  std::string description;  // "English (Great Britain), female: eSpeak NG"
  std::string identifier;   // "gmw/en+f2"
  std::string language;     // "en"
  bool female = false;
  bool operator==(const EngineVoice&) const = default;
};

// Descriptions of a male and a female voice; empty where there is none.
struct VoicePair {
  std::string male;
  std::string female;
};

// Each language's voices, male before female. The voices of the locale's language come first, its
// region's before others'; behind them all others by name. A locale is written like "en_GB.UTF-8";
// an empty one, "C" and "POSIX" mean British English. No description occurs twice.
std::vector<EngineVoice> EngineVoicesFor(const std::string& locale, const std::string& engine,
                                         std::vector<EngineLanguage> languages);

// The first voice of each kind: the pair that suits a user best who has chosen none.
VoicePair PreferredVoices(const std::vector<EngineVoice>& voices);

}  // namespace brenwick

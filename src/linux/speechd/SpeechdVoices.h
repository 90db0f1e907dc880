// The voices that speech-dispatcher has, as a person chooses among them.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace brenwick {

// A voice as one of speech-dispatcher's engines lists it: "English (America)+Annie", "en-US",
// "Annie"; the variant of a voice that is none of another is "none".
struct SpeechdListing {
  std::string module;
  std::string name;
  std::string language;
  std::string variant;
  bool operator==(const SpeechdListing&) const = default;
};

// The engine and the voice of a server none of whose engines works; it only says that.
inline constexpr std::string_view kNoEngine = "dummy";

struct SpeechdVoiceEntry {
  std::string description;  // "English (America), Annie: espeak-ng, Speech Dispatcher"
  std::string module;
  std::string name;
  std::string language;
  bool operator==(const SpeechdVoiceEntry&) const = default;
};

// The most voices of a language in the list.
constexpr std::size_t kMostOfALanguage = 20;
// The most variants of a voice in the list, beside the voice itself.
constexpr std::size_t kMostVariants = 3;

// A listing's line, "name TAB language TAB variant", of that module. Its fields may be missing.
// Each is one line of valid UTF-8, whatever the server sends: it is shown, and remembered on a
// line.
SpeechdListing ReadListing(const std::string& module, std::string_view line);

// Of each voice a few of its variants, and of each language the first ones, every engine in its
// turn. Whatever the order of the listings is, the result is the same; and it is the same again
// when it is condensed once more.
std::vector<SpeechdListing> CondensedVoices(std::vector<SpeechdListing> listings);

// The languages are in the order of the locale, as that of eSpeak NG's voices has them; no
// description occurs twice.
std::vector<SpeechdVoiceEntry> SpeechdVoicesFor(std::vector<SpeechdListing> listings,
                                                const std::string& locale);

}  // namespace brenwick

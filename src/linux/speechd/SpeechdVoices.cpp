#include "linux/speechd/SpeechdVoices.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <map>
#include <set>
#include <tuple>

#include "sources/ForeignText.h"
#include "voice/LanguageTag.h"

namespace brenwick {
namespace {

constexpr std::string_view kNoVariant = "none";

// This engine's voices are called like the languages they speak.
constexpr std::string_view kNamedLikeLanguages = "espeak";

// These variants sound like a woman, a man and another woman, and like people.
constexpr std::array<std::string_view, kMostVariants> kGoodVariants = {"female2", "male3",
                                                                       "female3"};

// A voice on its way into the list.
struct Candidate {
  SpeechdListing listing;
  std::string tag;      // of the language, in lower case
  std::string voice;    // the voice of which this one is a variant, or its own name
  std::size_t variant;  // 0 is the voice itself; variants from the best on
  std::size_t turn = 0;
};

bool IsVariant(const SpeechdListing& listing) {
  return !listing.variant.empty() && listing.variant != kNoVariant &&
         listing.name.ends_with("+" + listing.variant);
}

Candidate AsCandidate(SpeechdListing listing) {
  Candidate candidate{.listing = std::move(listing), .tag = {}, .voice = {}, .variant = 0};
  const SpeechdListing& listed = candidate.listing;
  candidate.tag = LanguageTag(listed.language);
  candidate.voice = listed.name;
  if (!IsVariant(listed)) return candidate;
  candidate.voice.resize(listed.name.size() - listed.variant.size() - 1);
  const auto found = std::find(kGoodVariants.begin(), kGoodVariants.end(), listed.variant);
  candidate.variant = 1 + static_cast<std::size_t>(found - kGoodVariants.begin());
  return candidate;
}

template <typename Key>
void SortBy(std::vector<Candidate>& candidates, const Key& key) {
  std::stable_sort(candidates.begin(), candidates.end(),
                   [&](const auto& a, const auto& b) { return key(a) < key(b); });
}

// Leaves the first ones of each group.
template <typename Group>
void KeepOfEach(std::vector<Candidate>& candidates, std::size_t count, const Group& group) {
  std::map<decltype(group(candidates.front())), std::size_t> seen;
  std::erase_if(candidates,
                [&](const Candidate& candidate) { return seen[group(candidate)]++ >= count; });
}

// In the order of their engines, the voices before their variants.
std::vector<Candidate> Candidates(std::vector<SpeechdListing> listings) {
  std::vector<Candidate> candidates;
  for (SpeechdListing& listing : listings) {
    if (!listing.name.empty()) candidates.push_back(AsCandidate(std::move(listing)));
  }
  SortBy(candidates, [](const Candidate& candidate) {
    const SpeechdListing& listing = candidate.listing;
    return std::tuple(listing.module, candidate.variant, listing.name, listing.language,
                      listing.variant);
  });
  return candidates;
}

// Leaves the few that a person can choose among.
void Condense(std::vector<Candidate>& candidates) {
  KeepOfEach(candidates, 1 + kMostVariants, [](const Candidate& candidate) {
    return std::tuple(candidate.listing.module, candidate.tag, candidate.voice);
  });
  std::map<std::pair<std::string, std::string>, std::size_t> turns;
  for (Candidate& candidate : candidates) {
    candidate.turn = turns[{candidate.listing.module, candidate.tag}]++;
  }
  SortBy(candidates, [](const Candidate& candidate) { return candidate.turn; });
  KeepOfEach(candidates, kMostOfALanguage,
             [](const Candidate& candidate) { return candidate.tag; });
}

using Names = std::map<std::string, std::string>;

// The names that a person knows languages by, behind their tags.
Names LanguageNames(const std::vector<Candidate>& candidates) {
  Names names;
  for (const Candidate& candidate : candidates) {
    if (candidate.listing.module.starts_with(kNamedLikeLanguages)) {
      names.emplace(candidate.tag, candidate.voice);
    }
  }
  return names;
}

std::string LanguageName(const Candidate& candidate, const Names& names) {
  const auto found = names.find(candidate.tag);
  return found != names.end() ? found->second : candidate.listing.language;
}

std::string Description(const Candidate& candidate, const Names& names) {
  const SpeechdListing& listing = candidate.listing;
  std::string description;
  if (listing.module.starts_with(kNamedLikeLanguages)) {
    description = candidate.voice + (candidate.variant > 0 ? ", " + listing.variant : "");
  } else {
    const std::string language = LanguageName(candidate, names);
    description = language + (language.empty() ? "" : ", ") + listing.name;
  }
  return description + ": " + listing.module + ", Speech Dispatcher";
}

}  // namespace

SpeechdListing ReadListing(const std::string& module, std::string_view line) {
  const auto take = [&line] {
    const std::size_t tab = line.find('\t');
    std::string field = OneLine(line.substr(0, tab));
    line.remove_prefix(tab == std::string_view::npos ? line.size() : tab + 1);
    return field;
  };
  SpeechdListing listing{OneLine(module), take(), "", ""};
  listing.language = take();
  listing.variant = take();
  return listing;
}

std::vector<SpeechdListing> CondensedVoices(std::vector<SpeechdListing> listings) {
  std::vector<Candidate> candidates = Candidates(std::move(listings));
  Condense(candidates);
  std::vector<SpeechdListing> condensed;
  condensed.reserve(candidates.size());
  for (Candidate& candidate : candidates) condensed.push_back(std::move(candidate.listing));
  return condensed;
}

std::vector<SpeechdVoiceEntry> SpeechdVoicesFor(std::vector<SpeechdListing> listings,
                                                const std::string& locale) {
  std::vector<Candidate> candidates = Candidates(std::move(listings));
  const Names names = LanguageNames(candidates);
  const std::string wanted = LanguageTag(locale);
  SortBy(candidates, [&](const Candidate& candidate) {
    return std::tuple(TagDistance(candidate.tag, wanted), LanguageName(candidate, names),
                      candidate.tag, candidate.listing.module, candidate.voice, candidate.variant);
  });
  std::vector<SpeechdVoiceEntry> entries;
  std::set<std::string> known;
  for (Candidate& candidate : candidates) {
    std::string description = Description(candidate, names);
    if (!known.insert(description).second) continue;
    SpeechdListing& listing = candidate.listing;
    entries.push_back({std::move(description), std::move(listing.module), std::move(listing.name),
                       std::move(listing.language)});
  }
  return entries;
}

}  // namespace brenwick

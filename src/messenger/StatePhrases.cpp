#include "messenger/StatePhrases.h"

#include <algorithm>
#include <iterator>

#include "platform/MessengerStates.h"

namespace brenwick {
namespace {

using Phrase = std::string (*)(const TextTable&, const SettingsValues&);

struct StatePhrase {
  std::int32_t state;
  Phrase phrase;
};

template <std::int16_t Id>
std::string Text(const TextTable& texts, const SettingsValues&) {
  return texts.LoadText(Id);
}

template <std::string SettingsValues::*Member>
std::string Setting(const TextTable&, const SettingsValues& settings) {
  return settings.*Member;
}

// Idle is announced with the user's phrase for away.
constexpr StatePhrase kPhrases[] = {
    {MSTATE_UNKNOWN, Text<9>},
    {MSTATE_OFFLINE, Setting<&SettingsValues::Offline>},
    {MSTATE_ONLINE, Setting<&SettingsValues::Online>},
    {MSTATE_INVISIBLE, Text<54>},
    {MSTATE_BUSY, Setting<&SettingsValues::Busy>},
    {MSTATE_BE_RIGHT_BACK, Text<52>},
    {MSTATE_IDLE, Setting<&SettingsValues::Away>},
    {MSTATE_AWAY, Setting<&SettingsValues::Away>},
    {MSTATE_ON_THE_PHONE, Text<55>},
    {MSTATE_OUT_TO_LUNCH, Text<58>},
};

}  // namespace

std::string PhraseOf(std::int32_t state, const TextTable& texts, const SettingsValues& settings) {
  if (!IsKnownState(state)) return "Unknown";
  const auto* found =
      std::find_if(std::begin(kPhrases), std::end(kPhrases),
                   [state](const StatePhrase& each) { return each.state == state; });
  return found == std::end(kPhrases) ? std::string() : found->phrase(texts, settings);
}

bool DetermineState(Logs& log, std::int32_t state) {
  return log.Trap("frmMain", "DetermineState", [&] {
    log.DebugWrite("DetermineState", "Checking userstate");
    log.DebugWrite("DetermineState",
                   IsKnownState(state) ? FactsOf(state).name : "MSTATE_ Out of context");
    return FactsOf(state).signed_in;
  });
}

}  // namespace brenwick

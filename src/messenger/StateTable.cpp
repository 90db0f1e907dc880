#include "messenger/StateTable.h"

#include <algorithm>
#include <iterator>

#include "platform/MessengerClient.h"

namespace brenwick {
namespace {

template <std::int16_t Id>
std::string Text(const TextTable& texts, const frmMain&) {
  return texts.LoadText(Id);
}

template <TextBox frmMain::*Box>
std::string Phrase(const TextTable&, const frmMain& form) {
  return (form.*Box).Text();
}

std::string Nothing(const TextTable&, const frmMain&) { return {}; }
std::string Unknown(const TextTable&, const frmMain&) { return "Unknown"; }

// Idle is announced with the user's phrase for away.
constexpr StateRow kStates[] = {
    {MSTATE_UNKNOWN, "MSTATE_UNKNOWN", false, Text<9>, 9, false},
    {MSTATE_OFFLINE, "MSTATE_OFFLINE", false, Phrase<&frmMain::txtOffline>, 11, true},
    {MSTATE_ONLINE, "MSTATE_ONLINE", true, Phrase<&frmMain::txtOnline>, 10, true},
    {MSTATE_INVISIBLE, "MSTATE_INVISIBLE", true, Text<54>, 2, true},
    {MSTATE_BUSY, "MSTATE_BUSY", true, Phrase<&frmMain::txtBusy>, 13, true},
    {MSTATE_BE_RIGHT_BACK, "MSTATE_BE_RIGHT_BACK", true, Text<52>, 0, true},
    {MSTATE_IDLE, "MSTATE_IDLE", true, Phrase<&frmMain::txtAway>, 1, true},
    {MSTATE_AWAY, "MSTATE_AWAY", true, Phrase<&frmMain::txtAway>, 12, true},
    {MSTATE_ON_THE_PHONE, "MSTATE_ON_THE_PHONE", true, Text<55>, 7, true},
    {MSTATE_OUT_TO_LUNCH, "MSTATE_OUT_TO_LUNCH", true, Text<58>, 8, true},
    {MSTATE_LOCAL_FINDING_SERVER, "MSTATE_LOCAL_FINDING_SERVER", false, Nothing, 5, false},
    {MSTATE_LOCAL_CONNECTING_TO_SERVER, "MSTATE_LOCAL_CONNECTING_TO_SERVER", false, Nothing, 3,
     false},
    {MSTATE_LOCAL_SYNCHRONIZING_WITH_SERVER, "MSTATE_LOCAL_SYNCHRONIZING_WITH_SERVER", false,
     Nothing, 6, false},
    {MSTATE_LOCAL_DISCONNECTING_FROM_SERVER, "MSTATE_LOCAL_DISCONNECTING_FROM_SERVER", false,
     Nothing, 4, false},
};

constexpr StateRow kUnknownState = {-1, "MSTATE_IS_UNKNOWN", false, Unknown, 14, false};

}  // namespace

const StateRow& FindState(std::int32_t state) {
  const auto* found = std::find_if(std::begin(kStates), std::end(kStates),
                                   [state](const StateRow& row) { return row.state == state; });
  return found == std::end(kStates) ? kUnknownState : *found;
}

bool IsKnownState(std::int32_t state) { return &FindState(state) != &kUnknownState; }

bool DetermineState(Logs& log, std::int32_t state) {
  return log.Trap("frmMain", "DetermineState", [&] {
    log.DebugWrite("DetermineState", "Checking userstate");
    log.DebugWrite("DetermineState",
                   IsKnownState(state) ? FindState(state).name : "MSTATE_ Out of context");
    return FindState(state).signed_in;
  });
}

}  // namespace brenwick

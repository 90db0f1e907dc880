#include "platform/MessengerStates.h"

#include <algorithm>
#include <iterator>

namespace brenwick {
namespace {

constexpr StateFacts kStates[] = {
    {MSTATE_UNKNOWN, "MSTATE_UNKNOWN", false, 9, false},
    {MSTATE_OFFLINE, "MSTATE_OFFLINE", false, 11, true},
    {MSTATE_ONLINE, "MSTATE_ONLINE", true, 10, true},
    {MSTATE_INVISIBLE, "MSTATE_INVISIBLE", true, 2, true},
    {MSTATE_BUSY, "MSTATE_BUSY", true, 13, true},
    {MSTATE_BE_RIGHT_BACK, "MSTATE_BE_RIGHT_BACK", true, 0, true},
    {MSTATE_IDLE, "MSTATE_IDLE", true, 1, true},
    {MSTATE_AWAY, "MSTATE_AWAY", true, 12, true},
    {MSTATE_ON_THE_PHONE, "MSTATE_ON_THE_PHONE", true, 7, true},
    {MSTATE_OUT_TO_LUNCH, "MSTATE_OUT_TO_LUNCH", true, 8, true},
    {MSTATE_LOCAL_FINDING_SERVER, "MSTATE_LOCAL_FINDING_SERVER", false, 5, false},
    {MSTATE_LOCAL_CONNECTING_TO_SERVER, "MSTATE_LOCAL_CONNECTING_TO_SERVER", false, 3, false},
    {MSTATE_LOCAL_SYNCHRONIZING_WITH_SERVER, "MSTATE_LOCAL_SYNCHRONIZING_WITH_SERVER", false, 6,
     false},
    {MSTATE_LOCAL_DISCONNECTING_FROM_SERVER, "MSTATE_LOCAL_DISCONNECTING_FROM_SERVER", false, 4,
     false},
};

constexpr StateFacts kUnknownState = {-1, "MSTATE_IS_UNKNOWN", false, 14, false};

}  // namespace

const StateFacts& FactsOf(std::int32_t state) {
  const auto* found = std::find_if(std::begin(kStates), std::end(kStates),
                                   [state](const StateFacts& row) { return row.state == state; });
  return found == std::end(kStates) ? kUnknownState : *found;
}

bool IsKnownState(std::int32_t state) { return &FactsOf(state) != &kUnknownState; }

}  // namespace brenwick

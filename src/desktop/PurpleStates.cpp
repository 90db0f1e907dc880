#include "desktop/PurpleStates.h"

#include <algorithm>
#include <iterator>

namespace brenwick {
namespace {

// The one in which somebody is reached best comes first.
constexpr std::int32_t kOrder[] = {MSTATE_ONLINE, MSTATE_IDLE,         MSTATE_BUSY,
                                   MSTATE_AWAY,   MSTATE_OUT_TO_LUNCH, MSTATE_INVISIBLE,
                                   MSTATE_OFFLINE};

}  // namespace

std::int32_t BestState(const std::vector<std::int32_t>& states) {
  const auto* best = std::find_if(std::begin(kOrder), std::end(kOrder), [&](std::int32_t state) {
    return std::find(states.begin(), states.end(), state) != states.end();
  });
  return best == std::end(kOrder) ? MSTATE_OFFLINE : *best;
}

std::optional<std::int32_t> StateOfPrimitive(int primitive, bool idle) {
  constexpr std::optional<std::int32_t> kStates[] = {
      std::nullopt,     MSTATE_OFFLINE, MSTATE_ONLINE,       MSTATE_BUSY,
      MSTATE_INVISIBLE, MSTATE_AWAY,    MSTATE_OUT_TO_LUNCH, MSTATE_ONLINE,
  };
  if (primitive < 0 || primitive >= static_cast<int>(std::size(kStates))) return std::nullopt;
  const std::optional<std::int32_t> state = kStates[primitive];
  return state == MSTATE_ONLINE && idle ? MSTATE_IDLE : state;
}

void PurpleStates::SignOn(int account, Moment now) {
  bursts_[account] = {now + burst_.quiet, now + burst_.whole};
  for (auto& [id, entry] : entries_) {
    const auto found = entry.accounts.find(account);
    if (found != entry.accounts.end()) found->second.appeared = false;
  }
}

std::optional<StateNews> PurpleStates::Find(int account, const MessengerContact& contact,
                                            std::int32_t state) {
  return Take(account, contact, state, true);
}

std::optional<StateNews> PurpleStates::Change(int account, const MessengerContact& contact,
                                              std::int32_t state, Moment now) {
  return Take(account, contact, state, InBurst(account, contact.SigninName, now));
}

std::optional<StateNews> PurpleStates::Take(int account, const MessengerContact& contact,
                                            std::int32_t state, bool found) {
  Entry& entry = entries_[contact.SigninName];
  entry.contact = contact;
  InAccount& here = entry.accounts[account];
  here.state = state;
  if (state != MSTATE_OFFLINE) here.appeared = true;
  return News(entry, found);
}

std::optional<StateNews> PurpleStates::News(Entry& entry, bool found) {
  std::vector<std::int32_t> states;
  for (const auto& [account, there] : entry.accounts) states.push_back(there.state);
  const std::int32_t state = BestState(states);
  if (state == entry.told) return std::nullopt;
  entry.told = state;
  return StateNews{entry.contact, state, found};
}

// Whoever appears keeps the burst going; whoever has appeared is no part of it any more.
bool PurpleStates::InBurst(int account, const std::string& id, Moment now) {
  const auto found = bursts_.find(account);
  if (found == bursts_.end()) return false;
  Burst& burst = found->second;
  if (now >= std::min(burst.quiet_end, burst.end)) {
    bursts_.erase(found);
    return false;
  }
  if (entries_[id].accounts[account].appeared) return false;
  burst.quiet_end = now + burst_.quiet;
  return true;
}

std::vector<StateNews> PurpleStates::SignOff(int account) {
  bursts_.erase(account);
  std::vector<StateNews> news;
  for (auto& [id, entry] : entries_) {
    if (entry.accounts.erase(account) == 0) continue;
    if (auto changed = News(entry, true)) news.push_back(std::move(*changed));
  }
  return news;
}

std::int32_t PurpleStates::StateOf(int account, const std::string& id) const {
  const auto entry = entries_.find(id);
  if (entry == entries_.end()) return MSTATE_UNKNOWN;
  const auto here = entry->second.accounts.find(account);
  return here == entry->second.accounts.end() ? MSTATE_UNKNOWN : here->second.state;
}

}  // namespace brenwick

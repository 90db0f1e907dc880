#include "sources/PurpleStates.h"

#include <algorithm>
#include <iterator>

namespace brenwick {
namespace {

// The state in which a contact is reached best comes first.
constexpr std::int32_t kOrder[] = {MSTATE_ONLINE, MSTATE_IDLE,         MSTATE_BUSY,
                                   MSTATE_AWAY,   MSTATE_OUT_TO_LUNCH, MSTATE_INVISIBLE,
                                   MSTATE_OFFLINE};

std::int32_t Effective(Presence presence) {
  return presence.state == MSTATE_ONLINE && presence.idle ? MSTATE_IDLE : presence.state;
}

}  // namespace

std::int32_t BestState(const std::vector<std::int32_t>& states) {
  const auto* best = std::find_if(std::begin(kOrder), std::end(kOrder), [&](std::int32_t state) {
    return std::find(states.begin(), states.end(), state) != states.end();
  });
  return best == std::end(kOrder) ? MSTATE_OFFLINE : *best;
}

std::optional<std::int32_t> StateOfPrimitive(int primitive) {
  constexpr std::optional<std::int32_t> kStates[] = {
      std::nullopt,     MSTATE_OFFLINE, MSTATE_ONLINE,       MSTATE_BUSY,
      MSTATE_INVISIBLE, MSTATE_AWAY,    MSTATE_OUT_TO_LUNCH, MSTATE_ONLINE,
  };
  if (primitive < 0 || primitive >= static_cast<int>(std::size(kStates))) return std::nullopt;
  return kStates[primitive];
}

void PurpleStates::SignOn(int account, Moment now) {
  bursts_[account] = {now + burst_.quiet, now + burst_.whole};
  for (auto& [id, entry] : entries_) {
    const auto found = entry.accounts.find(account);
    if (found != entry.accounts.end()) found->second.appeared = false;
  }
}

std::optional<StateNews> PurpleStates::Find(int account, const MessengerContact& contact,
                                            Presence presence) {
  return Take(account, contact, presence, true);
}

std::optional<StateNews> PurpleStates::Appear(int account, const MessengerContact& contact,
                                              Presence presence, Moment now) {
  return Take(account, contact, presence, InBurst(account, contact.SigninName, now));
}

std::optional<StateNews> PurpleStates::Change(int account, const MessengerContact& contact,
                                              std::int32_t state, Moment now) {
  Presence presence = PresenceOf(account, contact.SigninName);
  presence.state = state;
  return Appear(account, contact, presence, now);
}

std::optional<StateNews> PurpleStates::ChangeIdle(int account, const MessengerContact& contact,
                                                  bool idle, Moment now) {
  Presence presence = PresenceOf(account, contact.SigninName);
  presence.idle = idle;
  return Appear(account, contact, presence, now);
}

Presence PurpleStates::PresenceOf(int account, const std::string& id) const {
  const auto entry = entries_.find(id);
  if (entry == entries_.end()) return {};
  const auto here = entry->second.accounts.find(account);
  return here == entry->second.accounts.end() ? Presence{} : here->second.presence;
}

std::optional<StateNews> PurpleStates::Take(int account, const MessengerContact& contact,
                                            Presence presence, bool found) {
  Entry& entry = entries_[contact.SigninName];
  entry.contact = contact;
  InAccount& here = entry.accounts[account];
  here.presence = presence;
  if (presence.state != MSTATE_OFFLINE) here.appeared = true;
  return News(entry, found);
}

std::optional<StateNews> PurpleStates::News(Entry& entry, bool found) {
  std::vector<std::int32_t> states;
  for (const auto& [account, there] : entry.accounts) states.push_back(Effective(there.presence));
  const std::int32_t state = BestState(states);
  if (state == entry.told) return std::nullopt;
  // A contact who is new in the list and offline has not gone offline.
  const bool new_and_gone = entry.told == MSTATE_UNKNOWN && state == MSTATE_OFFLINE;
  entry.told = state;
  return StateNews{entry.contact, state, found || new_and_gone};
}

// A contact who appears keeps the burst going; one who has appeared before is no part of it.
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

}  // namespace brenwick

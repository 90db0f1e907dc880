// Keeps the contacts' states in a client with several accounts, and finds which changes are news.
#pragma once

#include <chrono>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "platform/MessengerClient.h"

namespace brenwick {

struct StateNews {
  MessengerContact contact;
  std::int32_t state = MSTATE_UNKNOWN;
  bool found = false;  // how things stand, not a change
};

// The presence of a contact in one account.
struct Presence {
  std::int32_t state = MSTATE_OFFLINE;
  bool idle = false;
};

// The time after a sign-on in which a contact that appears counts as having been there before.
struct SignOnBurst {
  std::chrono::milliseconds quiet{2000};   // it is over when nobody has appeared for so long
  std::chrono::milliseconds whole{10000};  // and after so long in any case
};

// A contact that is in the lists of several accounts has the state in which it is reached best.
class PurpleStates {
 public:
  using Moment = std::chrono::steady_clock::time_point;

  explicit PurpleStates(SignOnBurst burst) : burst_(burst) {}

  // The user has signed on with this account: the client is about to learn who is there.
  void SignOn(int account, Moment now);
  // Each of these answers nothing where the contact's state stays what it was. A contact who is
  // online and idle is idle; one who is away stays away.
  std::optional<StateNews> Find(int account, const MessengerContact& contact, Presence presence);
  std::optional<StateNews> Appear(int account, const MessengerContact& contact, Presence presence,
                                  Moment now);
  std::optional<StateNews> Change(int account, const MessengerContact& contact, std::int32_t state,
                                  Moment now);
  std::optional<StateNews> ChangeIdle(int account, const MessengerContact& contact, bool idle,
                                      Moment now);
  // Forgets all that this account told. The contacts' states may change by that.
  std::vector<StateNews> SignOff(int account);

 private:
  struct InAccount {
    Presence presence;
    bool appeared = false;  // since the sign-on
  };
  struct Entry {
    MessengerContact contact;
    std::map<int, InAccount> accounts;
    std::int32_t told = MSTATE_UNKNOWN;
  };
  struct Burst {
    Moment quiet_end;
    Moment end;
  };

  Presence PresenceOf(int account, const std::string& id) const;
  std::optional<StateNews> Take(int account, const MessengerContact& contact, Presence presence,
                                bool found);
  static std::optional<StateNews> News(Entry& entry, bool found);
  bool InBurst(int account, const std::string& id, Moment now);

  SignOnBurst burst_;
  std::map<std::string, Entry> entries_;  // by sign-in name
  std::map<int, Burst> bursts_;           // by account
};

// The state of a contact who has several at once: the one in which the contact is reached best;
// offline without any.
std::int32_t BestState(const std::vector<std::int32_t>& states);

// The messenger's state for a status of libpurple, whose primitive is given; nothing for those that
// say nothing about who can be reached, such as a mood.
std::optional<std::int32_t> StateOfPrimitive(int primitive);

}  // namespace brenwick

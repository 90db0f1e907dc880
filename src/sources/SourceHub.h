// Several messenger clients that the program takes for one.
//
// An event that comes while a handler still runs, because the handler shows a box or lets pending
// events run, waits until that handler is done; so handlers run one at a time and in the order of
// the events, whichever source they come from. A handler that waits long calls HandleWaiting: the
// waiting events are then handled inside it.
#pragma once

#include <cstdint>
#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "sources/MessengerSource.h"

namespace brenwick {

class SourceHub : public MessengerClient {
 public:
  // The sources outlive this object. Where two of them know the same, the earlier one wins.
  explicit SourceHub(std::vector<MessengerSource*> sources);
  ~SourceHub() override;

  void Attach(MessengerListener& listener) override;
  void Detach() override;

  // The state of the first source at which the user is signed in; else that of the first source.
  std::int32_t MyStatus() override;
  // The first name that a source knows.
  std::string MyName() override;

  // Opens the conversation where the contact was last heard of, or at the first source that knows
  // the contact. Where none does, NobodyKnows is called.
  void InstantMessage(const std::string& contact) override;

  void HandleWaiting() override;

  const std::vector<MessengerSource*>& All() const { return sources_; }

  std::function<void(const std::string& contact)> NobodyKnows;

 private:
  using Event = std::function<void(MessengerListener&)>;
  class Relay;

  void Raise(Event event);
  void OwnStateChanged();

  std::vector<MessengerSource*> sources_;
  std::vector<std::unique_ptr<Relay>> relays_;
  MessengerListener* listener_ = nullptr;
  std::deque<Event> waiting_;
  bool handling_ = false;
  std::int32_t told_ = MSTATE_OFFLINE;  // the own state that the program knows
  std::map<std::string, MessengerSource*> heard_at_;
};

}  // namespace brenwick

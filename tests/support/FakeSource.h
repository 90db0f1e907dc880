// A messenger client that raises what a test tells it to.
#pragma once

#include <string>
#include <vector>

#include "sources/MessengerSource.h"

namespace brenwick {

class FakeSource : public MessengerSource {
 public:
  void Attach(MessengerListener& listener) override { raise = &listener; }
  void Detach() override { raise = nullptr; }
  std::int32_t MyStatus() override { return status; }
  std::string MyName() override { return name; }
  void InstantMessage(const std::string& contact) override { opened.push_back(contact); }
  Connection Describe() const override { return {.Name = "fake"}; }
  bool Knows(const std::string& contact) override { return contact == known; }
  void Test(const std::string& /*sentence*/) override {}

  void ChangeStatus(std::int32_t state) {
    status = state;
    raise->OnLocalStateChangeResult(state);
  }
  void Send(const std::string& contact, const std::string& text) {
    raise->OnTextReceived({contact, contact}, "", text);
  }

  MessengerListener* raise = nullptr;
  std::int32_t status = MSTATE_OFFLINE;
  std::string name;
  std::string known;
  std::vector<std::string> opened;
};

}  // namespace brenwick

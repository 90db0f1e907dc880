// The messenger of a desktop where none is connected: the user counts as signed out, and no event
// ever comes.
#pragma once

#include "base/Failure.h"
#include "base/ProgramState.h"
#include "platform/MessengerClient.h"

namespace brenwick {

class AbsentMessenger : public MessengerClient {
 public:
  void Attach(MessengerListener& /*listener*/) override {}
  void Detach() override {}
  std::int32_t MyStatus() override { return MSTATE_OFFLINE; }
  std::string MyName() override { return {}; }
  void InstantMessage(const std::string& /*contact*/) override {
    throw Failure(kInvalidCall, "No messenger is connected", kTitle);
  }
};

}  // namespace brenwick

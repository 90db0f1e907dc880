// Conversation windows of the messenger client.
#pragma once

#include <string>

#include "logging/Logs.h"
#include "platform/MessengerClient.h"

namespace brenwick {

class Conversations {
 public:
  Conversations(Logs& log, MessengerClient& messenger) : log_(log), messenger_(messenger) {}

  // Has the client open its message window for the contact with this sign-in name, and does not
  // wait for it.
  void OpenConversation(const std::string& email) {
    log_.Trap("frmMain", "OpenConversation", [&] { messenger_.InstantMessage(email); });
  }

 private:
  Logs& log_;
  MessengerClient& messenger_;
};

}  // namespace brenwick

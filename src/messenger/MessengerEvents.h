// Every event of the messenger client, handed to the object that handles it.
#pragma once

#include <string>

#include "logging/Logs.h"
#include "messenger/ContactStates.h"
#include "messenger/IncomingText.h"
#include "messenger/Invitations.h"
#include "platform/MessengerClient.h"

namespace brenwick {

class MessengerEvents : public MessengerListener {
 public:
  MessengerEvents(Logs& log, IncomingText& texts, ContactStates& states, Invitations& invitations)
      : log_(log), texts_(texts), states_(states), invitations_(invitations) {}

  void OnTextReceived(const MessengerContact& sender, const std::string& header,
                      const std::string& text) override {
    texts_.oMessenger_OnTextReceived(sender, header, text);
  }
  void OnUserStateChanged(const MessengerContact& user, std::int32_t state) override {
    states_.oMessenger_OnUserStateChanged(user, state);
  }
  void OnUserStateFound(const MessengerContact& user, std::int32_t state) override {
    states_.oMessenger_OnUserStateFound(user, state);
  }
  void OnLocalStateChangeResult(std::int32_t state) override {
    states_.oMessenger_OnLocalStateChangeResult(state);
  }
  void OnAppInviteReceived(const MessengerContact& contact, const std::string& appName) override {
    invitations_.oMessenger_OnAppInviteReceived(contact, appName);
  }
  void OnFileTransferInviteReceived(const MessengerContact& contact,
                                    const std::string& fileName) override {
    invitations_.oMessenger_OnFileTransferInviteReceived(contact, fileName);
  }
  void OnNewerClientAvailable(const std::string& downloadAddress) override {
    invitations_.oMessenger_OnNewerClientAvailable(downloadAddress);
  }

  // Only traced, under a name whose lines the debug log drops.
  void OnOtherEvent(const std::string& name) override {
    log_.DebugWrite("P_MessengerObject", "oMessenger_" + name);
  }

 private:
  Logs& log_;
  IncomingText& texts_;
  ContactStates& states_;
  Invitations& invitations_;
};

}  // namespace brenwick

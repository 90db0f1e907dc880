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

  // These are only traced, under a name whose lines the debug log drops.
  void OnAppInviteAccepted() override { Trace("OnAppInviteAccepted"); }
  void OnAppShutdown() override { Trace("OnAppShutdown"); }
  void OnBuddyPropertyChangeResult() override { Trace("OnBuddyPropertyChangeResult"); }
  void OnFindResult() override { Trace("OnFindResult"); }
  void OnListAddResult() override { Trace("OnListAddResult"); }
  void OnLogoff() override { Trace("OnLogoff"); }
  void OnLogonResult() override { Trace("OnLogonResult"); }
  void OnMessagePrivacyChangeResult() override { Trace("OnMessagePrivacyChangeResult"); }
  void OnTrustChanged() override { Trace("OnTrustChanged"); }
  void OnUnreadEmailChanged() override { Trace("OnUnreadEmailChanged"); }
  void OnUserDropped() override { Trace("OnUserDropped"); }
  void OnUserFriendlyNameChangeResult() override { Trace("OnUserFriendlyNameChangeResult"); }
  void OnUserJoin() override { Trace("OnUserJoin"); }
  void OnUserLeave() override { Trace("OnUserLeave"); }
  void OnNewSessionRequest() override { Trace("OnNewSessionRequest"); }
  void OnNotificationReceived() override { Trace("OnNotificationReceived"); }
  void OnPrimaryServiceChanged() override { Trace("OnPrimaryServiceChanged"); }
  void OnPromptChangeResult() override { Trace("OnPromptChangeResult"); }
  void OnRequestURLPostResult() override { Trace("OnRequestURLPostResult"); }
  void OnRequestURLResult() override { Trace("OnRequestURLResult"); }
  void OnSendResult() override { Trace("OnSendResult"); }
  void OnServiceLogoff() override { Trace("OnServiceLogoff"); }
  void OnSessionStateChange() override { Trace("OnSessionStateChange"); }
  void OnSPMessageReceived() override { Trace("OnSPMessageReceived"); }

 private:
  void Trace(const std::string& event) {
    log_.DebugWrite("P_MessengerObject", "oMessenger_" + event);
  }

  Logs& log_;
  IncomingText& texts_;
  ContactStates& states_;
  Invitations& invitations_;
};

}  // namespace brenwick

// A program that writes down what its messenger client tells it.
#pragma once

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "platform/MessengerClient.h"

namespace brenwick {

class RecordingListener : public MessengerListener {
 public:
  void OnTextReceived(const MessengerContact& sender, const std::string& header,
                      const std::string& text) override {
    Event(sender.SigninName + "," + sender.FriendlyName + "," + header + "," + text);
  }
  void OnUserStateChanged(const MessengerContact& user, std::int32_t state) override {
    Event(user.SigninName + " changed " + std::to_string(state));
  }
  void OnUserStateFound(const MessengerContact& user, std::int32_t state) override {
    Event(user.SigninName + " found " + std::to_string(state));
  }
  void OnLocalStateChangeResult(std::int32_t state) override {
    Event("own " + std::to_string(state));
  }
  void OnAppInviteReceived(const MessengerContact& contact, const std::string& app) override {
    Event(contact.SigninName + " invites to " + app);
  }
  void OnFileTransferInviteReceived(const MessengerContact& contact,
                                    const std::string& file) override {
    Event(contact.SigninName + " offers " + file);
  }
  void OnNewerClientAvailable(const std::string& address) override { Event("newer " + address); }
  void OnAppInviteAccepted() override { Event("OnAppInviteAccepted"); }
  void OnAppShutdown() override { Event("OnAppShutdown"); }
  void OnBuddyPropertyChangeResult() override { Event("OnBuddyPropertyChangeResult"); }
  void OnFindResult() override { Event("OnFindResult"); }
  void OnListAddResult() override { Event("OnListAddResult"); }
  void OnLogoff() override { Event("OnLogoff"); }
  void OnLogonResult() override { Event("OnLogonResult"); }
  void OnMessagePrivacyChangeResult() override { Event("OnMessagePrivacyChangeResult"); }
  void OnTrustChanged() override { Event("OnTrustChanged"); }
  void OnUnreadEmailChanged() override { Event("OnUnreadEmailChanged"); }
  void OnUserDropped() override { Event("OnUserDropped"); }
  void OnUserFriendlyNameChangeResult() override { Event("OnUserFriendlyNameChangeResult"); }
  void OnUserJoin() override { Event("OnUserJoin"); }
  void OnUserLeave() override { Event("OnUserLeave"); }
  void OnNewSessionRequest() override { Event("OnNewSessionRequest"); }
  void OnNotificationReceived() override { Event("OnNotificationReceived"); }
  void OnPrimaryServiceChanged() override { Event("OnPrimaryServiceChanged"); }
  void OnPromptChangeResult() override { Event("OnPromptChangeResult"); }
  void OnRequestURLPostResult() override { Event("OnRequestURLPostResult"); }
  void OnRequestURLResult() override { Event("OnRequestURLResult"); }
  void OnSendResult() override { Event("OnSendResult"); }
  void OnServiceLogoff() override { Event("OnServiceLogoff"); }
  void OnSessionStateChange() override { Event("OnSessionStateChange"); }
  void OnSPMessageReceived() override { Event("OnSPMessageReceived"); }

  std::vector<std::string> events;
  // What the handler of the coming event does.
  std::function<void()> Meanwhile;

 private:
  void Event(const std::string& event) {
    if (const auto meanwhile = std::exchange(Meanwhile, nullptr)) meanwhile();
    events.push_back(event);
  }
};

}  // namespace brenwick

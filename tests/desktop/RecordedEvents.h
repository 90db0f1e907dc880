// A listener that writes down what a messenger raises, one event a line.
#pragma once

#include <functional>
#include <string>
#include <utility>

#include "platform/MessengerClient.h"

namespace brenwick {

class RecordedEvents : public MessengerListener {
 public:
  void OnTextReceived(const MessengerContact& sender, const std::string& header,
                      const std::string& text) override {
    Add("text " + Of(sender) + ": " + header + text);
  }
  void OnUserStateChanged(const MessengerContact& user, std::int32_t state) override {
    Add("changed " + Of(user) + ": " + std::to_string(state));
  }
  void OnUserStateFound(const MessengerContact& user, std::int32_t state) override {
    Add("found " + Of(user) + ": " + std::to_string(state));
  }
  void OnLocalStateChangeResult(std::int32_t state) override {
    Add("own " + std::to_string(state));
  }
  void OnAppInviteReceived(const MessengerContact& contact, const std::string& appName) override {
    Add("chat " + Of(contact) + ": " + appName);
  }
  void OnFileTransferInviteReceived(const MessengerContact& contact,
                                    const std::string& fileName) override {
    Add("file " + Of(contact) + ": " + fileName);
  }
  void OnNewerClientAvailable(const std::string& downloadAddress) override {
    Add("newer " + downloadAddress);
  }

  void OnAppInviteAccepted() override {}
  void OnAppShutdown() override {}
  void OnBuddyPropertyChangeResult() override {}
  void OnFindResult() override {}
  void OnListAddResult() override {}
  void OnLogoff() override {}
  void OnLogonResult() override {}
  void OnMessagePrivacyChangeResult() override {}
  void OnTrustChanged() override {}
  void OnUnreadEmailChanged() override {}
  void OnUserDropped() override {}
  void OnUserFriendlyNameChangeResult() override {}
  void OnUserJoin() override {}
  void OnUserLeave() override {}
  void OnNewSessionRequest() override {}
  void OnNotificationReceived() override {}
  void OnPrimaryServiceChanged() override {}
  void OnPromptChangeResult() override {}
  void OnRequestURLPostResult() override {}
  void OnRequestURLResult() override {}
  void OnSendResult() override {}
  void OnServiceLogoff() override {}
  void OnSessionStateChange() override {}
  void OnSPMessageReceived() override {}

  std::string Take() { return std::exchange(lines, {}); }

  std::string lines;
  // Called at each event, which it may end the program at.
  std::function<void()> Heard;

 private:
  static std::string Of(const MessengerContact& contact) {
    return contact.FriendlyName + " (" + contact.SigninName + ")";
  }
  void Add(const std::string& line) {
    lines += line + "\n";
    if (Heard) Heard();
  }
};

}  // namespace brenwick

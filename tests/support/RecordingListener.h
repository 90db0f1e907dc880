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
  void OnOtherEvent(const std::string& name) override { Event(name); }

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

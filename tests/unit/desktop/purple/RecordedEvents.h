// A listener that writes down what a messenger raises, one event a line.
#pragma once

#include <functional>
#include <string>
#include <utility>

#include "support/RecordingListener.h"

namespace brenwick {

class RecordedEvents : public RecordingListener {
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

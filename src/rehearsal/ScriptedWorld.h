// The world of a rehearsal: each interface of the program with nothing behind it but the script.
#pragma once

#include <chrono>
#include <deque>
#include <functional>
#include <string>
#include <utility>

#include "platform/Clock.h"
#include "platform/EventLoop.h"
#include "platform/MessengerClient.h"
#include "platform/Screen.h"
#include "platform/System.h"
#include "platform/TrayIcon.h"
#include "rehearsal/Transcript.h"

namespace brenwick {

class ScriptedMessenger : public MessengerClient {
 public:
  explicit ScriptedMessenger(Transcript& transcript) : transcript_(transcript) {}

  void Attach(MessengerListener& listener) override { listener_ = &listener; }
  void Detach() override { listener_ = nullptr; }
  std::int32_t MyStatus() override { return status; }
  std::string MyName() override { return name; }
  void InstantMessage(const std::string& contact) override;

  // Whom the events of the script reach; nullptr while nothing is attached.
  MessengerListener* Listener() const { return listener_; }

  std::int32_t status = MSTATE_ONLINE;
  std::string name;

 private:
  Transcript& transcript_;
  MessengerListener* listener_ = nullptr;
};

class ScriptedScreen : public Screen {
 public:
  explicit ScriptedScreen(Transcript& transcript) : transcript_(transcript) {}

  BoxAnswer MessageBox(const std::string& text, const std::string& title, BoxIcon icon,
                       BoxButtons buttons) override;
  void Beep() override;
  void SetPointer(Pointer pointer) override;
  void SendKeys(const std::string& keys) override;
  void Open(const std::string& address) override;
  float TextWidth(const std::string& text, const Font& font) override;
  float TwipsPerPixelX() override { return 15; }

  // Keys sent and not yet given to the control with the focus.
  std::deque<std::string>& SentKeys() { return sent_keys_; }
  // A new process begins with the default pointer.
  void Reset();

  std::deque<std::string> answers;  // of coming message boxes

 private:
  BoxAnswer NextAnswer(BoxButtons buttons);

  Transcript& transcript_;
  Pointer pointer_ = Pointer::Default;
  std::deque<std::string> sent_keys_;
};

class ScriptedTray : public TrayIcon {
 public:
  explicit ScriptedTray(Transcript& transcript) : transcript_(transcript) {}

  void Add(const std::string& tip) override { Write("add", tip); }
  void Modify(const std::string& tip) override { Write("modify", tip); }
  void Delete() override { Write("delete", tip_); }

  // A new process begins without a tip.
  void Reset() { tip_.clear(); }

 private:
  void Write(const char* what, const std::string& tip);

  Transcript& transcript_;
  std::string tip_;
};

class ScriptedLoop : public EventLoop {
 public:
  void DoEvents() override {
    if (Pending) Pending();
  }
  void Sleep(std::chrono::milliseconds) override {}

  // Handles what is pending.
  std::function<void()> Pending;
};

// A clock that moves only when it is told to.
class ScriptedClock : public Clock {
 public:
  LocalTime Now() override { return now; }
  std::string DateText(LocalTime time) override;
  std::string TimeText(LocalTime time) override;

  LocalTime now;
};

// "2004-01-10T12:00:00" as a moment; false when the text is none.
bool ParseMoment(const std::string& text, LocalTime& moment);

class ScriptedSystem : public System {
 public:
  std::string CommandLine() override { return command_line; }
  bool PreviousInstance() override { return previous_instance; }
  bool DevelopmentEnvironment() override { return development; }
  std::pair<std::string, std::string> OSVersion() override { return os; }

  std::string command_line;
  bool previous_instance = false;
  bool development = false;
  std::pair<std::string, std::string> os;
};

}  // namespace brenwick

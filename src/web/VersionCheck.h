// Whether a newer version of the program has been published.
#pragma once

#include <functional>
#include <string>

#include "base/ProgramState.h"
#include "language/TextTable.h"
#include "logging/Logs.h"
#include "platform/EventLoop.h"
#include "platform/Progress.h"
#include "platform/Screen.h"
#include "settings/Registry.h"
#include "settings/SettingsValues.h"
#include "speech/Speech.h"
#include "web/VersionDisplay.h"
#include "web/WebAccess.h"

namespace brenwick {

class VersionCheck {
 public:
  VersionCheck(Logs& log, const ProgramState& state, const SettingsValues& values,
               const TextTable& texts, Progress& progress, Registry& registry, EventLoop& loop,
               Screen& screen, Speech& speech, WebAccess& access, VersionDisplay& display);

  // Runs a whole check and returns at its end; events are handled meanwhile. A newer version is
  // always said; all else is told only in a check that the user asked for (interactive). While one
  // check runs no other begins: one that the user asks for then makes the running one theirs.
  void UpdateCheck(bool interactive);

  // A silent check, where the user wants them and is signed in.
  void CheckAutomatically();

  // Opens the publisher's web site.
  void cmdWebSite_Click();

  // Called at each step of the wait: has the messages handled that came while a handler of the
  // messenger's events waits for the check.
  std::function<void()> HandleMessages;

 private:
  std::string Server();
  bool WaitForAnswer();
  bool GoOnWaiting();
  void TellTimeOut(bool failed);
  void TellResult();
  void Tell(const std::string& text, std::int16_t label);

  Logs& log_;
  const ProgramState& state_;
  const SettingsValues& values_;
  const TextTable& texts_;
  Progress& progress_;
  Registry& registry_;
  EventLoop& loop_;
  Screen& screen_;
  Speech& speech_;
  WebAccess& access_;
  VersionDisplay& display_;
  bool running_ = false;
  bool interactive_ = false;  // the running check
};

}  // namespace brenwick

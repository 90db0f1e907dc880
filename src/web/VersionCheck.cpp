#include "web/VersionCheck.h"

#include <chrono>

#include "settings/SettingsKeys.h"
#include "web/VersionNumber.h"

namespace brenwick {
namespace {

constexpr const char* kModule = "frmMain";
constexpr std::chrono::milliseconds kStep{10};
constexpr int kMostSteps = 1000;

}  // namespace

VersionCheck::VersionCheck(Logs& log, const ProgramState& state, const SettingsValues& values,
                           const TextTable& texts, Progress& progress, Registry& registry,
                           EventLoop& loop, Screen& screen, Speech& speech, WebAccess& access,
                           VersionDisplay& display)
    : log_(log),
      state_(state),
      values_(values),
      texts_(texts),
      progress_(progress),
      registry_(registry),
      loop_(loop),
      screen_(screen),
      speech_(speech),
      access_(access),
      display_(display) {}

void VersionCheck::CheckAutomatically() {
  if (values_.CheckNewVersionsBrenwick && state_.MessengerOnline) UpdateCheck(false);
}

void VersionCheck::UpdateCheck(bool interactive) {
  if (running_) {
    interactive_ = interactive_ || interactive;
    return;
  }
  log_.Trap(kModule, "UpdateCheck", [&] {
    running_ = true;
    interactive_ = interactive;
    progress_.SetHourglass(true);
    access_.SetAnswer("");
    access_.WebGetVersionInfo(Server());
    const bool answered = WaitForAnswer();
    const bool failed = access_.Failed();
    access_.Close();
    progress_.SetHourglass(false);
    display_.ShowOnButton(texts_.LoadText(77));
    if (answered) {
      TellResult();
    } else if (interactive_) {
      TellTimeOut(failed);
    }
    display_.ShowSocketState();
    running_ = false;
  });
}

// The user may name a server of their own in the store.
std::string VersionCheck::Server() {
  const std::string own = registry_.ReadText(kGeneralKey, "VersionServer");
  return own.empty() ? kPublisher : own;
}

// False when nothing had come after a long wait.
bool VersionCheck::WaitForAnswer() {
  int steps = 0;
  while (access_.Answer().empty()) {
    loop_.Sleep(kStep);
    loop_.DoEvents();
    if (HandleMessages) HandleMessages();
    ++steps;
    access_.CountStep();
    display_.ShowOnButton(std::to_string(steps));
    display_.ShowSocketState();
    if (steps < kMostSteps || !access_.Answer().empty()) continue;
    if (!GoOnWaiting()) return false;
    steps = 0;
  }
  return true;
}

bool VersionCheck::GoOnWaiting() {
  return interactive_ && screen_.MessageBox(texts_.LoadText(74), kTitle, BoxIcon::Question,
                                            BoxButtons::YesNo) == BoxAnswer::Yes;
}

void VersionCheck::TellTimeOut(bool failed) {
  speech_.Speak(texts_.LoadText(73), false, kDefaultVoice, false);
  if (!failed) return;
  screen_.MessageBox(access_.Answer(), kTitle, BoxIcon::Exclamation, BoxButtons::Ok);
  access_.SetAnswer(texts_.LoadText(73));
}

void VersionCheck::TellResult() {
  const std::string& web = access_.Answer();
  if (ParseVersion(web) > ParseVersion(ProgramVersion{}.Plain())) {
    const std::string news = texts_.GetText(texts_.LoadText(69), web);
    speech_.Speak(news, false, kDefaultVoice, false);
    if (interactive_) Tell(news, 71);
  } else if (interactive_) {
    speech_.Speak(texts_.LoadText(72), false, kDefaultVoice, false);
    Tell(texts_.LoadText(72), 75);
  }
}

// The text, the program's version, and the published one behind its label.
void VersionCheck::Tell(const std::string& text, std::int16_t label) {
  screen_.MessageBox(text + "\r\n" + texts_.LoadText(70) + " " + ProgramVersion{}.Plain() + "\r\n" +
                         texts_.LoadText(label) + " " + access_.Answer(),
                     kTitle, BoxIcon::Information, BoxButtons::Ok);
}

void VersionCheck::cmdWebSite_Click() {
  log_.Trap(kModule, "cmdWebSite_Click", [&] { screen_.Open("http://" + Server()); });
}

}  // namespace brenwick

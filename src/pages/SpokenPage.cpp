#include "pages/SpokenPage.h"

#include <string>

namespace brenwick {
namespace {

constexpr const char* kModule = "frmMain";

}  // namespace

SpokenPage::SpokenPage(Logs& log, frmMain& form, Speech& speech)
    : log_(log), form_(form), speech_(speech) {
  form_.chkMute.Click = [this] { chkMute_Click(); };
  form_.mnuMute.Click = [this] { mnuMute_Click(); };
  form_.chkIntroduceUser.Click = [this] { chkIntroduceUser_Click(); };
  form_.chkUseMyNamesInsteadOfBuddyNames.Click = [this] {
    chkUseMyNamesInsteadOfBuddyNames_Click();
  };
  form_.chkFinishSentence.Click = [this] { chkFinishSentence_Click(); };
  form_.chkScrollLock.Click = [this] { chkScrollLock_Click(); };
  form_.ocxHotKeySilent.HotkeyPressed = [this] { ocxHotKeySilent_HotkeyPressed(); };
}

void SpokenPage::chkMute_Click() {
  log_.Trap(kModule, "chkMute_Click", [&] {
    const bool muted = form_.chkMute.Ticked();
    log_.DebugWrite("Mute", std::string("Current setting = ") + (muted ? "Silent" : "Speaking"));
    form_.mnuMute.SetChecked(muted);
    if (!muted) return;
    log_.DebugWrite("Mute", "Flushing buffer");
    speech_.Purge();
  });
}

// The menu item only ever switches mute off.
void SpokenPage::mnuMute_Click() {
  log_.Trap(kModule, "mnuMute_Click", [&] {
    form_.mnuMute.SetChecked(false);
    form_.chkMute.SetTicked(false);
  });
}

void SpokenPage::chkIntroduceUser_Click() {
  form_.chkFirstName.SetEnabled(form_.chkIntroduceUser.Ticked());
}

// An own name can be given only while own names are used.
void SpokenPage::chkUseMyNamesInsteadOfBuddyNames_Click() {
  const bool used = form_.chkUseMyNamesInsteadOfBuddyNames.Ticked();
  form_.txtBuddyNamesFriendlyName.SetEnabled(used);
  form_.lblBuddyNamesFriendlyName.SetEnabled(used);
}

void SpokenPage::chkFinishSentence_Click() { speech_.FollowFinishSentence(); }

void SpokenPage::chkScrollLock_Click() { EnableSilenceHotKey(); }

void SpokenPage::EnableSilenceHotKey() {
  form_.ocxHotKeySilent.SetEnabled(form_.chkScrollLock.Ticked());
}

void SpokenPage::ocxHotKeySilent_HotkeyPressed() {
  if (form_.chkScrollLock.Ticked()) speech_.Purge();
}

}  // namespace brenwick

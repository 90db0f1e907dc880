#include "messenger/Invitations.h"

namespace brenwick {
namespace {

constexpr const char* kModule = "frmMain";

}  // namespace

void Invitations::oMessenger_OnAppInviteReceived(const MessengerContact& contact,
                                                 const std::string& appName) {
  log_.Trap(kModule, "oMessenger_OnAppInviteReceived", [&] { Announce(contact, 82, appName); });
}

void Invitations::oMessenger_OnFileTransferInviteReceived(const MessengerContact& contact,
                                                          const std::string& fileName) {
  log_.Trap(kModule, "oMessenger_OnFileTransferInviteReceived", [&] {
    log_.DebugWrite("MessengerObject", "FileTransferInviteReceived");
    Announce(contact, 78, fileName);
  });
}

void Invitations::Announce(const MessengerContact& contact, std::int16_t text,
                           const std::string& what) {
  contacts_.ListMod("N", contact.SigninName, contact.FriendlyName);
  speech_.Announce(name_.Of(contact) + " " + texts_.LoadText(text) + " " + what, false,
                   kDefaultVoice);
}

void Invitations::oMessenger_OnNewerClientAvailable(const std::string& downloadAddress) {
  log_.Trap(kModule, "oMessenger_OnNewerClientAvailable", [&] {
    if (!settings_.CheckNewVersionsMessenger) return;
    log_.DebugWrite("MessengerObject", "OnNewerClientAvailable");
    speech_.Speak(texts_.LoadText(106), true, kDefaultVoice, false);
    progress_.StatusForm(false);
    const std::string question =
        texts_.LoadText(106) + "\r\n\r\n" + texts_.LoadText(111) + downloadAddress;
    const BoxAnswer answer =
        screen_.MessageBox(question, kTitle, BoxIcon::Information, BoxButtons::YesNo);
    if (answer == BoxAnswer::Yes) screen_.Open(downloadAddress);
  });
}

}  // namespace brenwick

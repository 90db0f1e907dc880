// Invitations from contacts, and the notice that a newer messenger client exists.
#pragma once

#include <cstdint>
#include <string>

#include "contacts/ContactList.h"
#include "language/TextTable.h"
#include "logging/Logs.h"
#include "messenger/SpokenName.h"
#include "platform/MessengerClient.h"
#include "platform/Progress.h"
#include "platform/Screen.h"
#include "settings/SettingsValues.h"
#include "speech/Speech.h"

namespace brenwick {

class Invitations {
 public:
  Invitations(Logs& log, const SettingsValues& settings, const TextTable& texts,
              ContactList& contacts, const SpokenName& name, Speech& speech, Progress& progress,
              Screen& screen)
      : log_(log),
        settings_(settings),
        texts_(texts),
        contacts_(contacts),
        name_(name),
        speech_(speech),
        progress_(progress),
        screen_(screen) {}

  // Invitations are announced in the default voice, those of ignored contacts too.
  void oMessenger_OnAppInviteReceived(const MessengerContact& contact, const std::string& appName);
  void oMessenger_OnFileTransferInviteReceived(const MessengerContact& contact,
                                               const std::string& fileName);

  // Says and offers the download while the user wants to hear of newer clients.
  void oMessenger_OnNewerClientAvailable(const std::string& downloadAddress);

 private:
  void Announce(const MessengerContact& contact, std::int16_t text, const std::string& what);

  Logs& log_;
  const SettingsValues& settings_;
  const TextTable& texts_;
  ContactList& contacts_;
  const SpokenName& name_;
  Speech& speech_;
  Progress& progress_;
  Screen& screen_;
};

}  // namespace brenwick

// Contacts coming and going, and the user's own sign-in and sign-out.
#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "base/ProgramState.h"
#include "contacts/ContactList.h"
#include "language/TextTable.h"
#include "logging/Logs.h"
#include "messenger/SpokenName.h"
#include "platform/MessengerClient.h"
#include "platform/MessengerStates.h"
#include "settings/SettingsValues.h"
#include "speech/Speech.h"

namespace brenwick {

class ContactStates {
 public:
  ContactStates(Logs& log, ProgramState& state, const SettingsValues& settings,
                const TextTable& texts, ContactList& contacts, const SpokenName& name,
                Speech& speech);

  // Records a contact's new state and, where the user wants it, says it in the default voice.
  void oMessenger_OnUserStateChanged(const MessengerContact& user, std::int32_t state);

  // Records a contact's state and says nothing.
  void oMessenger_OnUserStateFound(const MessengerContact& user, std::int32_t state);

  // Keeps ProgramState::MessengerOnline, shows the state in the title, and announces it once, even
  // while mute is on.
  void oMessenger_OnLocalStateChangeResult(std::int32_t state);

  // Says again which contacts are online, or that none is.
  void SayStateAgain();

  // Shows a title in the caption of the main window and in the tip of the tray icon.
  std::function<void(const std::string&)> ShowTitle;
  // Called when the user's own state has changed and was announced.
  std::function<void()> AfterOwnState;

 private:
  void LogState(const MessengerContact& user, const StateFacts& facts);
  void Announce(const MessengerContact& user, const std::string& phrase);
  std::string DescribeOwnState(std::int32_t state);
  void AnnounceOwnState(std::string announcement);
  bool SayWhoIsOnline();
  void Say(std::string sentence, bool mustSpeak);

  Logs& log_;
  ProgramState& state_;
  const SettingsValues& settings_;
  const TextTable& texts_;
  ContactList& contacts_;
  const SpokenName& name_;
  Speech& speech_;
  std::string last_own_announcement_;
};

}  // namespace brenwick

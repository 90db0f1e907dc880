// Instant messages and the mail service's notices: whether and how they are read aloud.
#pragma once

#include <string>

#include "contacts/ContactList.h"
#include "language/TextTable.h"
#include "logging/Logs.h"
#include "messenger/MessageJournal.h"
#include "messenger/SpokenName.h"
#include "platform/MessengerClient.h"
#include "settings/SettingsValues.h"
#include "speech/Outcome.h"
#include "speech/Speech.h"
#include "speech/TextCleanUp.h"

namespace brenwick {

class IncomingText {
 public:
  IncomingText(Logs& log, const SettingsValues& settings, const TextTable& texts,
               ContactList& contacts, const SpokenName& name, const TextCleanUp& cleanUp,
               Speech& speech, MessageJournal& journal)
      : log_(log),
        settings_(settings),
        texts_(texts),
        contacts_(contacts),
        name_(name),
        clean_up_(cleanUp),
        speech_(speech),
        journal_(journal) {}

  // Speaks at most once. Empty texts and those that begin with a carriage return are logged only;
  // ignored contacts are never spoken; a message that begins with "/talk" is spoken even through
  // mute and only-state mode. The journal tells what became of each.
  void oMessenger_OnTextReceived(const MessengerContact& sender, const std::string& header,
                                 const std::string& text);

 private:
  Outcome Handle(const MessengerContact& sender, const std::string& header,
                 const std::string& text);
  Outcome WhetherSpoken(const MessengerContact& sender, const std::string& text);
  bool IsMailNotice(const MessengerContact& sender, const std::string& text);
  Outcome AnnounceMail(const std::string& text);
  Outcome AnnounceInbox(const std::string& text);
  Outcome AnnounceNewMail(const std::string& text);
  bool MailIsAnnounced();
  Outcome SpeakMessage(const MessengerContact& sender, const std::string& text,
                       const std::string& voice);
  std::string NamePart(const MessengerContact& sender);
  void Log(const std::string& text) { log_.DebugWrite("TextReceived", text); }

  Logs& log_;
  const SettingsValues& settings_;
  const TextTable& texts_;
  ContactList& contacts_;
  const SpokenName& name_;
  const TextCleanUp& clean_up_;
  Speech& speech_;
  MessageJournal& journal_;
};

}  // namespace brenwick

// What handles the messenger's events, over the fakes.
#pragma once

#include <string>
#include <vector>

#include "messenger/MessengerEvents.h"
#include "pages/SettingsBinding.h"
#include "pages/SpokenPage.h"
#include "pages/SpokenWordsPage.h"
#include "support/Fakes.h"

namespace brenwick {

// The user is signed in, debugging is on, and text 93 reads "text 93".
struct MessengerRoom {
  MessengerRoom() {
    texts.Replace(NumberedTexts());
    world.state.Debug = true;
    world.state.MessengerOnline = true;
  }

  // The one box that the report of such a failure shows.
  static std::string Report(const std::string& failure, const std::string& procedure) {
    return failure + "\r\n\r\nModule: frmMain\r\nProcedure: " + procedure + "\r\n\r\n";
  }

  FakeWorld world;
  FakeVoice voice;
  frmMain form;
  SettingsValues values;
  SettingsBinding binding{form, values};
  TextTable texts{world.log};
  ContactList contacts{world.log, values, texts};
  TextCleanUp clean_up{world.log};
  Abbreviations abbreviations{world.log, texts, world.status, world.data, world.folders};
  SpokenHistory history{world.log};
  Speech speech{world.log,     world.state, values,       texts, clean_up,
                abbreviations, history,     world.status, voice};
  SpokenWordsPage spoken_words{form, speech};
  SpokenPage spoken_page{world.log, form, speech};
  SpokenName name{values, contacts, clean_up};
  std::vector<std::string> journal_lines;
  MessageJournal journal{texts, [this](const std::string& line) { journal_lines.push_back(line); }};
  IncomingText incoming{world.log, values, texts, contacts, name, clean_up, speech, journal};
  ContactStates states{world.log, world.state, values, texts, contacts, name, speech};
  Invitations invitations{world.log, values, texts,        contacts,
                          name,      speech, world.status, world.screen};
  MessengerEvents events{world.log, incoming, states, invitations};
};

}  // namespace brenwick

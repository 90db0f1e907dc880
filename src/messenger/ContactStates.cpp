#include "messenger/ContactStates.h"

#include "base/Numbers.h"
#include "base/Text.h"
#include "messenger/StatePhrases.h"

namespace brenwick {
namespace {

constexpr const char* kModule = "frmMain";
constexpr int kOnlineCode = 10;

}  // namespace

ContactStates::ContactStates(Logs& log, ProgramState& state, const SettingsValues& settings,
                             const TextTable& texts, ContactList& contacts, const SpokenName& name,
                             Speech& speech)
    : log_(log),
      state_(state),
      settings_(settings),
      texts_(texts),
      contacts_(contacts),
      name_(name),
      speech_(speech) {}

void ContactStates::oMessenger_OnUserStateChanged(const MessengerContact& user,
                                                  std::int32_t state) {
  log_.Trap(kModule, "oMessenger_OnUserStateChanged", [&] {
    log_.DebugWrite("MessengerObject", "UserStateChanged");
    const StateFacts& facts = FactsOf(state);
    LogState(user, facts);
    const std::string phrase = PhraseOf(state, texts_, settings_);
    contacts_.ListAdd(user.SigninName, user.FriendlyName, facts.code);
    if (!facts.announced) return;
    if (settings_.NotifyUserState && contacts_.GetContactValue(user.SigninName, "I") != "True") {
      Announce(user, phrase);
    } else {
      log_.DebugWrite("UserStateChanged", "Userstate changes are NOT spoken");
    }
  });
}

void ContactStates::oMessenger_OnUserStateFound(const MessengerContact& user, std::int32_t state) {
  log_.Trap(kModule, "oMessenger_OnUserStateFound", [&] {
    log_.DebugWrite("MessengerObject", "UserStateFound");
    const StateFacts& facts = FactsOf(state);
    LogState(user, facts);
    contacts_.ListAdd(user.SigninName, user.FriendlyName, facts.code);
  });
}

void ContactStates::LogState(const MessengerContact& user, const StateFacts& facts) {
  log_.DebugWrite("UserStateChanged",
                  user.FriendlyName + " (" + user.SigninName + ") " + facts.name);
}

void ContactStates::Announce(const MessengerContact& user, const std::string& phrase) {
  log_.DebugWrite("UserStateChanged", "Statemessage spoken");
  const std::string name = name_.Calmed(user);
  log_.DebugWrite("UserStateChanged", "Speaking change of " + name);
  log_.DebugWrite("TextReceived", "Replace abbreviations from TXT file");
  Say(name + " " + phrase, false);
}

void ContactStates::oMessenger_OnLocalStateChangeResult(std::int32_t state) {
  log_.Trap(kModule, "oMessenger_OnLocalStateChangeResult", [&] {
    log_.DebugWrite("MessengerObject", "OnLocalStateChangeResult");
    state_.MessengerOnline = false;
    state_.MessengerOnline = DetermineState(log_, state);
    const std::string announcement = DescribeOwnState(state);
    if (ShowTitle) ShowTitle(texts_.LoadText(state_.MessengerOnline ? 1 : 2) + kTitle);
    // From here on sentences queue, whatever "Finish sentence" says.
    speech_.SetSpeakFlags(SVSFlagsAsync + SVSFIsXML);
    AnnounceOwnState(announcement);
    if (AfterOwnState) AfterOwnState();
  });
}

std::string ContactStates::DescribeOwnState(std::int32_t state) {
  if (!state_.MessengerOnline) {
    log_.DebugWrite("MessengerObject", "OnLocalStateChangeResult - OffLine");
    return texts_.LoadText(57);
  }
  if (state == MSTATE_INVISIBLE) {
    log_.DebugWrite("MessengerObject", "OnLocalStateChangeResult - OnLine but invisible");
    return texts_.LoadText(174);
  }
  log_.DebugWrite("MessengerObject", "OnLocalStateChangeResult - OnLine");
  return texts_.LoadText(56);
}

void ContactStates::AnnounceOwnState(std::string announcement) {
  if (announcement.empty()) return;
  if (announcement != last_own_announcement_) Say(announcement, true);
  last_own_announcement_ = std::move(announcement);
}

void ContactStates::SayStateAgain() {
  IgnoringFailures([&] {
    if (!state_.MessengerOnline) {
      speech_.Speak(texts_.LoadText(57), true, kDefaultVoice, false);
      return;
    }
    if (SayWhoIsOnline()) return;
    speech_.Speak(texts_.LoadText(171) + " " + std::string(Trimmed(settings_.Online)), true,
                  kDefaultVoice, false);
  });
}

// True when a contact was said.
bool ContactStates::SayWhoIsOnline() {
  bool said = false;
  for (const ContactRecord& record : contacts_.Records()) {
    IgnoringFailures([&] {
      if (record.Status.empty() || LeadingInteger16(record.Status) != kOnlineCode) return;
      Say(name_.Calmed({record.Email, record.Name}) + " " +
              contacts_.GetContactValue(record.Email, "S"),
          true);
      said = true;
    });
  }
  return said;
}

void ContactStates::Say(std::string sentence, bool mustSpeak) {
  speech_.Announce(std::move(sentence), mustSpeak, kDefaultVoice);
}

}  // namespace brenwick

#include "speech/Speech.h"

#include <algorithm>
#include <utility>

#include "base/Failure.h"
#include "base/Numbers.h"

namespace brenwick {
namespace {

constexpr const char* kModule = "frmMain";
constexpr std::int32_t kQueue = SVSFlagsAsync + SVSFIsXML;
constexpr std::int32_t kInterrupt = SVSFlagsAsync + SVSFPurgeBeforeSpeak + SVSFIsXML;

}  // namespace

// The settings of one of the two voices.
struct Speech::VoiceSettings {
  const char* gender;
  const char* procedure;
  const ChosenEntry& voice;
  const std::string& speed;
  const std::string& volume;
};

Speech::Speech(Logs& log, const ProgramState& state, const SettingsValues& values,
               const TextTable& texts, const TextCleanUp& cleanUp,
               const Abbreviations& abbreviations, SpokenHistory& history, Progress& progress,
               SpVoice& voice)
    : log_(log),
      state_(state),
      values_(values),
      texts_(texts),
      clean_up_(cleanUp),
      abbreviations_(abbreviations),
      history_(history),
      progress_(progress),
      voice_(voice) {}

Outcome Speech::Speak(std::string p_sSpokenText, bool p_bMustSpeakThis, std::string p_strVoice,
                      bool p_bAgain) {
  return log_.Trap(kModule, "Speak", [&] {
    progress_.SetHourglass(true);
    log_.DebugWrite("Speak", "Text to speak :" + p_sSpokenText);
    const bool muted = values_.Mute;
    std::string note;
    if (muted && p_bMustSpeakThis) {
      log_.DebugWrite("Speak", "Mute is on but overruled by /talk");
      note = texts_.LoadText(114) + ": ";
    } else if (muted) {
      log_.DebugWrite("Speak", "Mute is on, nothing is spoken");
      note = texts_.LoadText(13) + ": ";
    }
    Outcome outcome = Outcome::Muted;
    if (!muted || p_bMustSpeakThis) {
      if (state_.MessengerOnline || p_bMustSpeakThis) {
        SayNow(p_sSpokenText, p_strVoice, p_bAgain);
        outcome = Outcome::Spoken;
      } else {
        outcome = Outcome::SignedOut;
        log_.DebugWrite("Speak", "Not online, nothing spoken");
      }
    }
    if (ListSentence) ListSentence(note + p_sSpokenText);
    if (state_.SaveConversations && state_.MessengerOnline) log_.ConversationWrite(p_sSpokenText);
    progress_.SetHourglass(false);
    return outcome;
  });
}

Outcome Speech::Announce(std::string sentence, bool mustSpeak, const std::string& voice,
                         const Trace& replaced) {
  abbreviations_.ReplaceEmoticons(sentence);
  if (replaced) replaced(sentence);
  return Speak(std::move(sentence), mustSpeak, voice, false);
}

// Hands the text to the engine and leaves in it what was said.
void Speech::SayNow(std::string& text, const std::string& code, bool again) {
  text = MakeSafe(text);
  const std::string chosen = ChooseVoice(code);
  if (chosen == kMale) {
    SetVoiceMale();
  } else {
    SetVoiceFemale();
  }
  if (!again) history_.SpeakArray(text, chosen);
  log_.DebugWrite("Speak", "Speaking text: " + text);
  voice_.Speak(text, speak_flags_);
}

// The engine reads the text as markup, so angle brackets must never reach it.
std::string Speech::MakeSafe(const std::string& text) {
  log_.DebugWrite("Speak", "Checking for illegal characters");
  log_.DebugWrite("Speak", " - Known illegal characters are: <>");
  std::string safe = text;
  std::replace(safe.begin(), safe.end(), '<', '(');
  std::replace(safe.begin(), safe.end(), '>', ')');
  return clean_up_.RemoveRepeatedCharacters(safe);
}

std::string Speech::ChooseVoice(const std::string& code) {
  log_.DebugWrite("Speak", "Setting the voice");
  if (!code.empty()) {
    log_.DebugWrite("Speak", "Setting the voice to " + code);
    return code;
  }
  log_.DebugWrite("Speak", "Setting the voice to default");
  return values_.DefaultVoice;
}

void Speech::SetVoiceFemale() {
  SetVoice(
      {"female", "SetVoiceFemale", values_.FemaleVoice, values_.FemaleSpeed, values_.FemaleVolume});
}

void Speech::SetVoiceMale() {
  SetVoice({"male", "SetVoiceMale", values_.MaleVoice, values_.MaleSpeed, values_.MaleVolume});
}

// Each step that fails leaves the engine's former setting, and the next one is taken.
void Speech::SetVoice(const VoiceSettings& settings) {
  if (state_.ClosingDown) return;
  const std::string setting = std::string("Setting ") + settings.gender + " voice";
  log_.DebugWrite("SetVoice", setting + " to " + settings.voice.text);
  IgnoringFailures([&] {
    const int position = settings.voice.position;
    if (position < 0) throw Failure(kInvalidCall);
    voice_.SetVoice(static_cast<std::size_t>(position));
  });
  IgnoringFailures([&] {
    const int rate = LeadingInteger16(settings.speed);
    log_.DebugWrite(settings.procedure, setting + " speed to " + std::to_string(rate));
    voice_.SetRate(rate);
  });
  IgnoringFailures([&] {
    const int volume = LeadingInteger16(settings.volume);
    log_.DebugWrite(settings.procedure, setting + " volume to " + std::to_string(volume));
    voice_.SetVolume(volume);
  });
}

void Speech::Purge() {
  IgnoringFailures([&] { voice_.Speak("", SVSFPurgeBeforeSpeak); });
}

void Speech::FollowFinishSentence() { speak_flags_ = values_.FinishSentence ? kQueue : kInterrupt; }

}  // namespace brenwick

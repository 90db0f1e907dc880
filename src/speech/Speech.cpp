#include "speech/Speech.h"

#include <algorithm>

#include "base/Failure.h"
#include "base/Numbers.h"

namespace brenwick {
namespace {

constexpr const char* kModule = "frmMain";
constexpr std::int32_t kQueue = SVSFlagsAsync + SVSFIsXML;
constexpr std::int32_t kInterrupt = SVSFlagsAsync + SVSFPurgeBeforeSpeak + SVSFIsXML;

}  // namespace

struct Speech::VoiceControls {
  const char* gender;
  const char* procedure;
  const ComboBox& voice;
  const TextBox& speed;
  const TextBox& volume;
};

Speech::Speech(Logs& log, const ProgramState& state, frmMain& form, const TextTable& texts,
               const TextCleanUp& cleanUp, SpokenHistory& history, Progress& progress,
               SpVoice& voice, Screen& screen)
    : log_(log),
      state_(state),
      form_(form),
      texts_(texts),
      clean_up_(cleanUp),
      history_(history),
      progress_(progress),
      voice_(voice),
      screen_(screen) {
  WireControls();
}

void Speech::WireControls() {
  form_.chkMute.Click = [this] { chkMute_Click(); };
  form_.mnuMute.Click = [this] { mnuMute_Click(); };
  form_.chkFinishSentence.Click = [this] { chkFinishSentence_Click(); };
  form_.chkScrollLock.Click = [this] { chkScrollLock_Click(); };
  form_.ocxHotKeySilent.HotkeyPressed = [this] { ocxHotKeySilent_HotkeyPressed(); };
  form_.cmdSpeedTestFemale.Click = [this] {
    log_.Trap(kModule, "cmdSpeedTestFemale_Click",
              [&] { Speak(form_.txtIntroductionText.Text(), true, kFemale, false); });
  };
  form_.cmdSpeedTestMale.Click = [this] {
    log_.Trap(kModule, "cmdSpeedTestMale_Click",
              [&] { Speak(form_.txtIntroductionText.Text(), true, kMale, false); });
  };
  form_.txtTalkSpeedMale.LostFocus = [this] {
    CheckNumber(form_.txtTalkSpeedMale, "txtTalkSpeedMale_LostFocus", -10, 10);
  };
  form_.txtTalkSpeedFemale.LostFocus = [this] {
    CheckNumber(form_.txtTalkSpeedFemale, "txtTalkSpeedFemale_LostFocus", -10, 10);
  };
  form_.txtTalkVolumeMale.LostFocus = [this] {
    CheckNumber(form_.txtTalkVolumeMale, "txtTalkVolumeMale_LostFocus", 0, 100);
  };
  form_.txtTalkVolumeFemale.LostFocus = [this] {
    CheckNumber(form_.txtTalkVolumeFemale, "txtTalkVolumeFemale_LostFocus", 0, 100);
  };
}

Outcome Speech::Speak(std::string p_sSpokenText, bool p_bMustSpeakThis, std::string p_strVoice,
                      bool p_bAgain) {
  return log_.Trap(kModule, "Speak", [&] {
    progress_.SetHourglass(true);
    log_.DebugWrite("Speak", "Text to speak :" + p_sSpokenText);
    const bool muted = form_.chkMute.Ticked();
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
    form_.lstMessages.AddItem(note + p_sSpokenText);
    form_.lstMessages.SetListIndex(form_.lstMessages.ListCount() - 1);
    if (state_.SaveConversations && state_.MessengerOnline) log_.ConversationWrite(p_sSpokenText);
    progress_.SetHourglass(false);
    return outcome;
  });
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
  return form_.optFemale.Chosen() ? kFemale : kMale;
}

void Speech::SetVoiceFemale() {
  SetVoice({"female", "SetVoiceFemale", form_.cmbVoiceFemale, form_.txtTalkSpeedFemale,
            form_.txtTalkVolumeFemale});
}

void Speech::SetVoiceMale() {
  SetVoice({"male", "SetVoiceMale", form_.cmbVoiceMale, form_.txtTalkSpeedMale,
            form_.txtTalkVolumeMale});
}

// Each step that fails leaves the engine's former setting, and the next one is taken.
void Speech::SetVoice(const VoiceControls& controls) {
  if (state_.ClosingDown) return;
  const std::string setting = std::string("Setting ") + controls.gender + " voice";
  log_.DebugWrite("SetVoice", setting + " to " + controls.voice.Text());
  IgnoringFailures([&] {
    const int position = controls.voice.ListIndex();
    if (position < 0) throw Failure(kInvalidCall);
    voice_.SetVoice(static_cast<std::size_t>(position));
  });
  IgnoringFailures([&] {
    const int rate = LeadingInteger16(controls.speed.Text());
    log_.DebugWrite(controls.procedure, setting + " speed to " + std::to_string(rate));
    voice_.SetRate(rate);
  });
  IgnoringFailures([&] {
    const int volume = LeadingInteger16(controls.volume.Text());
    log_.DebugWrite(controls.procedure, setting + " volume to " + std::to_string(volume));
    voice_.SetVolume(volume);
  });
}

// Silences the engine and drops what is queued.
void Speech::Purge() {
  IgnoringFailures([&] { voice_.Speak("", SVSFPurgeBeforeSpeak); });
}

void Speech::chkFinishSentence_Click() {
  speak_flags_ = form_.chkFinishSentence.Ticked() ? kQueue : kInterrupt;
}

void Speech::chkMute_Click() {
  log_.Trap(kModule, "chkMute_Click", [&] {
    const bool muted = form_.chkMute.Ticked();
    log_.DebugWrite("Mute", std::string("Current setting = ") + (muted ? "Silent" : "Speaking"));
    form_.mnuMute.SetChecked(muted);
    if (!muted) return;
    log_.DebugWrite("Mute", "Flushing buffer");
    Purge();
  });
}

// The menu item only ever switches mute off.
void Speech::mnuMute_Click() {
  log_.Trap(kModule, "mnuMute_Click", [&] {
    form_.mnuMute.SetChecked(false);
    form_.chkMute.SetTicked(false);
  });
}

void Speech::chkScrollLock_Click() { EnableSilenceHotKey(); }

void Speech::EnableSilenceHotKey() {
  form_.ocxHotKeySilent.SetEnabled(form_.chkScrollLock.Ticked());
}

void Speech::ocxHotKeySilent_HotkeyPressed() {
  if (form_.chkScrollLock.Ticked()) Purge();
}

// A bad number is shown to the user and left for him to mend.
void Speech::CheckNumber(TextBox& box, const char* procedure, int lowest, int highest) {
  log_.Trap(kModule, procedure, [&] {
    const double number = LeadingNumber(box.Text());
    bool valid = false;
    IgnoringFailures([&] {
      const int rounded = ToInteger16(number);
      valid = rounded >= lowest && rounded <= highest;
    });
    if (valid) return;
    screen_.Beep();
    box.SetFocus();
    box.SelectAll();
  });
}

}  // namespace brenwick

// The one way into speech, and the controls that shape it.
#pragma once

#include <cstdint>
#include <string>

#include "base/ProgramState.h"
#include "forms/frmMain.h"
#include "language/TextTable.h"
#include "logging/Logs.h"
#include "platform/Progress.h"
#include "platform/Screen.h"
#include "platform/SpVoice.h"
#include "speech/Outcome.h"
#include "speech/SpokenHistory.h"
#include "speech/TextCleanUp.h"

namespace brenwick {

// The voice codes: exactly "M" is the male voice, the empty text the default one, everything else
// the female voice.
inline constexpr const char* kMale = "M";
inline constexpr const char* kFemale = "F";
inline constexpr const char* kDefaultVoice = "";

class Speech {
 public:
  // Takes over the clicks of the controls that shape speech.
  Speech(Logs& log, const ProgramState& state, frmMain& form, const TextTable& texts,
         const TextCleanUp& cleanUp, SpokenHistory& history, Progress& progress, SpVoice& voice,
         Screen& screen);

  // Says a sentence, unless mute is on or the user is signed out; p_bMustSpeakThis speaks it all
  // the same. p_strVoice is a voice code. p_bAgain marks a repeat, which is not put into the
  // history once more. Whatever happens, the sentence is listed on the "Spoken words" page. Tells
  // whether it was Spoken, Muted or SignedOut.
  Outcome Speak(std::string p_sSpokenText, bool p_bMustSpeakThis, std::string p_strVoice,
                bool p_bAgain);

  // The flags that Speak hands to the engine: 9 to queue behind what is being said, 11 to cut it
  // off. They follow the "Finish sentence" box from its next click on.
  std::int32_t SpeakFlags() const { return speak_flags_; }
  void SetSpeakFlags(std::int32_t flags) { speak_flags_ = flags; }

  void chkFinishSentence_Click();
  void ocxHotKeySilent_HotkeyPressed();

  // The silence hotkey works while its box is ticked.
  void EnableSilenceHotKey();

 private:
  struct VoiceControls;

  void WireControls();
  void SetVoiceFemale();
  void SetVoiceMale();
  void SetVoice(const VoiceControls& controls);
  std::string MakeSafe(const std::string& text);
  std::string ChooseVoice(const std::string& code);
  void SayNow(std::string& text, const std::string& code, bool again);
  void Purge();
  void chkMute_Click();
  void mnuMute_Click();
  void chkScrollLock_Click();
  void CheckNumber(TextBox& box, const char* procedure, int lowest, int highest);

  Logs& log_;
  const ProgramState& state_;
  frmMain& form_;
  const TextTable& texts_;
  const TextCleanUp& clean_up_;
  SpokenHistory& history_;
  Progress& progress_;
  SpVoice& voice_;
  Screen& screen_;
  std::int32_t speak_flags_ = SVSFlagsAsync + SVSFIsXML;
};

}  // namespace brenwick

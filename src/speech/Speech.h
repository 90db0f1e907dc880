// The one way into speech.
#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "base/ProgramState.h"
#include "language/TextTable.h"
#include "logging/Logs.h"
#include "platform/Progress.h"
#include "platform/SpVoice.h"
#include "settings/SettingsValues.h"
#include "speech/Abbreviations.h"
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
  Speech(Logs& log, const ProgramState& state, const SettingsValues& values, const TextTable& texts,
         const TextCleanUp& cleanUp, const Abbreviations& abbreviations, SpokenHistory& history,
         Progress& progress, SpVoice& voice);

  // Says a sentence, unless mute is on or the user is signed out; p_bMustSpeakThis speaks it all
  // the same. p_strVoice is a voice code. p_bAgain marks a repeat, which is not put into the
  // history once more. Whatever happens, ListSentence is called. Tells whether the sentence was
  // Spoken, Muted or SignedOut.
  Outcome Speak(std::string p_sSpokenText, bool p_bMustSpeakThis, std::string p_strVoice,
                bool p_bAgain);

  using Trace = std::function<void(const std::string& sentence)>;
  // Says a sentence about a message or a contact after `Abbreviations::ReplaceEmoticons`.
  // `replaced`, if given, is called with the resulting sentence before it is spoken.
  Outcome Announce(std::string sentence, bool mustSpeak, const std::string& voice,
                   const Trace& replaced = nullptr);

  // Silences the engine and drops what is queued.
  void Purge();

  // The flags that Speak hands to the engine: 9 to queue behind what is being said, 11 to cut it
  // off.
  void SetSpeakFlags(std::int32_t flags) { speak_flags_ = flags; }
  // Sets the flags to what "Finish sentence" says now.
  void FollowFinishSentence();

  // Called for every sentence, with a note before it where mute was on.
  std::function<void(const std::string& line)> ListSentence;

 private:
  struct VoiceSettings;

  void SetVoiceFemale();
  void SetVoiceMale();
  void SetVoice(const VoiceSettings& settings);
  std::string MakeSafe(const std::string& text);
  std::string ChooseVoice(const std::string& code);
  void SayNow(std::string& text, const std::string& code, bool again);

  Logs& log_;
  const ProgramState& state_;
  const SettingsValues& values_;
  const TextTable& texts_;
  const TextCleanUp& clean_up_;
  const Abbreviations& abbreviations_;
  SpokenHistory& history_;
  Progress& progress_;
  SpVoice& voice_;
  std::int32_t speak_flags_ = SVSFlagsAsync + SVSFIsXML;
};

}  // namespace brenwick

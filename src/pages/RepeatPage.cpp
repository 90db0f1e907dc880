#include "pages/RepeatPage.h"

namespace brenwick {

RepeatPage::RepeatPage(Logs& log, frmMain& form, SpokenHistory& history, Speech& speech)
    : log_(log), form_(form), history_(history), speech_(speech) {
  for (HotKeyControl& key : form_.ocxSpeakMsg1) {
    key.HotkeyPressed = [this, index = key.Index()] { ocxSpeakMsg1_HotkeyPressed(index); };
  }
  form_.chkUseRepeat.Click = [this] { UseRepeatHotKeys(); };
  history_.Changed = [this] { ShowSentences(); };
}

// The oldest first, as they move on.
void RepeatPage::ShowSentences() {
  for (int i = SpokenHistory::kLength; i-- > 0;) {
    form_.txtSpokenMessages[static_cast<std::size_t>(i)].SetText(history_.At(i).text);
  }
}

void RepeatPage::UseRepeatHotKeys() {
  log_.Trap("modFunctions", "UseRepeatHotKeys", [&] {
    const bool used = form_.chkUseRepeat.Ticked();
    for (HotKeyControl& key : form_.ocxSpeakMsg1) key.SetEnabled(used);
    for (TextBox& box : form_.txtSpokenMessages) box.SetEnabled(used);
  });
}

// Mute and the signed-in check hold for a repeat as for any sentence.
void RepeatPage::ocxSpeakMsg1_HotkeyPressed(int index) {
  log_.Trap("frmMain", "ocxSpeakMsg1_HotkeyPressed", [&] {
    const SpokenHistory::Sentence spoken = history_.At(index);
    speech_.Speak(spoken.text, false, spoken.voice, true);
  });
}

}  // namespace brenwick

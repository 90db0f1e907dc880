// Tells beside the settings which hotkeys could not be had.
#pragma once

#include <string>
#include <vector>

#include "forms/frmMain.h"
#include "language/TextTable.h"

namespace brenwick {

// Each page that speaks of a hotkey has a label, which shows while an enabled hotkey of that page
// is kept from the program, in the language that is loaded.
class HotKeyNotes {
 public:
  HotKeyNotes(frmMain& form, TextTable& texts);

 private:
  struct Note {
    Label& label;
    std::vector<HotKeyControl*> keys;
  };

  void Show(const Note& note) const;
  std::string Text(const Note& note) const;

  const TextTable& texts_;
  std::vector<Note> notes_;
  std::vector<Subscription> subscriptions_;
};

}  // namespace brenwick

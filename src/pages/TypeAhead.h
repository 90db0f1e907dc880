// Completion while typing in a combo box.
#pragma once

#include <initializer_list>

#include "controls/ComboBox.h"
#include "logging/Logs.h"
#include "platform/Screen.h"

namespace brenwick {

class TypeAhead {
 public:
  // Takes over the key and change events of these combo boxes.
  TypeAhead(Logs& log, Screen& screen, std::initializer_list<ComboBox*> combos);

  // Selects the first entry that begins with the typed text and marks what was completed, so that
  // further typing replaces it; without such an entry the character just typed is taken back.
  void ComboTypeAhead(ComboBox& combo, bool caseSensitive);

 private:
  void Attach(ComboBox& combo);

  Logs& log_;
  Screen& screen_;
  int last_character_ = 0;
};

}  // namespace brenwick

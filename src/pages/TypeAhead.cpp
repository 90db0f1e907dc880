#include "pages/TypeAhead.h"

#include <string>

#include "base/Text.h"

namespace brenwick {
namespace {

constexpr const char* kBackspace = "{BACKSPACE}";

// The position of the first entry that begins with the text, −1 when none does.
int FindEntry(const ComboBox& combo, bool caseSensitive) {
  const auto fold = [caseSensitive](std::string_view text) {
    return caseSensitive ? std::string(text) : UpperCase(text);
  };
  const std::size_t length = CharacterCount(combo.Text());
  const std::string typed = fold(combo.Text());
  for (int i = 0; i < combo.ListCount(); ++i) {
    const std::string& entry = combo.Items()[static_cast<std::size_t>(i)];
    if (fold(FirstCharacters(entry, length)) == typed) return i;
  }
  return -1;
}

}  // namespace

TypeAhead::TypeAhead(Logs& log, Screen& screen, std::initializer_list<ComboBox*> combos)
    : log_(log), screen_(screen) {
  for (ComboBox* combo : combos) Attach(*combo);
}

void TypeAhead::Attach(ComboBox& combo) {
  combo.KeyPress = [this](int character) { last_character_ = character; };
  combo.Change = [this, &combo] {
    if (last_character_ >= kFirstPrintable) ComboTypeAhead(combo, false);
  };
  combo.KeyDown = [this](int code) {
    if (code == kKeyDelete) screen_.SendKeys(kBackspace);
  };
  combo.LostFocus = [this] { last_character_ = 0; };
}

void TypeAhead::ComboTypeAhead(ComboBox& combo, bool caseSensitive) {
  log_.Trap("modFunctions", "ComboTypeAhead", [&] {
    if (combo.Text().empty()) return;
    const std::size_t typed = CharacterCount(combo.Text());
    const int entry = FindEntry(combo, caseSensitive);
    if (entry < 0) {
      screen_.SendKeys(kBackspace);
      return;
    }
    combo.SetListIndex(entry);
    combo.Select(typed, CharacterCount(combo.Text()) - typed);
  });
}

}  // namespace brenwick

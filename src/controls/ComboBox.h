// A drop-down list whose choice can also be typed.
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "controls/Control.h"

namespace brenwick {

// Key codes that the program looks at, and the characters that keys stand for.
inline constexpr int kKeyBackspace = 8;
inline constexpr int kKeyDelete = 46;
inline constexpr int kFirstPrintable = 32;

class ComboBox : public Control {
 public:
  ComboBox(Place place, std::string name) : Control(place, std::move(name)) {}

  const std::vector<std::string>& Items() const { return items_; }
  int ListCount() const { return static_cast<int>(items_.size()); }
  void Clear();
  void AddItem(std::string entry);

  // The selected entry, −1 for none. Selecting shows the entry's text and runs Click when another
  // entry was selected before, never Change. A position outside the list raises kInvalidCall.
  int ListIndex() const { return list_index_; }
  void SetListIndex(int position);

  // The text in the box. A text that is not the selected entry's deselects it; Change runs when the
  // text differs.
  const std::string& Text() const { return text_; }
  void SetText(std::string text);

  // The selected part of the text, in characters.
  std::size_t SelStart() const { return sel_start_; }
  std::size_t SelLength() const { return sel_length_; }
  void Select(std::size_t start, std::size_t length);

  void UserSelect(int position);
  // A whole key stroke: KeyDown, KeyPress, and the character put in place of the selected part; a
  // Backspace removes the selected part or the character before it.
  void UserTypesCharacter(char32_t character);
  void UserKeyDown(int code) const;
  void UserKeyPress(int character) const;
  // The text emptied by the user, as before typing it anew.
  void UserEmpties();
  void UserLeaves() const;

  std::function<void()> Click;
  std::function<void()> Change;
  std::function<void(int)> KeyDown;
  std::function<void(int)> KeyPress;
  std::function<void()> LostFocus;

 private:
  void ReplaceSelection(std::u32string_view with);

  std::vector<std::string> items_;
  int list_index_ = -1;
  std::string text_;
  std::size_t sel_start_ = 0;
  std::size_t sel_length_ = 0;
};

}  // namespace brenwick

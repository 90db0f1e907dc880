#include "controls/ComboBox.h"

#include <algorithm>

#include "base/Failure.h"
#include "base/Text.h"

namespace brenwick {
namespace {

// The key code of the key that types a character. Letters, digits and control keys have their
// character's; the other keys' codes vary with the keyboard and nobody asks for them.
int KeyCodeOf(char32_t character) {
  const char32_t upper = UpperCase(character);
  const bool letter = upper >= U'A' && upper <= U'Z';
  const bool digit = upper >= U'0' && upper <= U'9';
  return letter || digit || upper <= U' ' ? static_cast<int>(upper) : 0;
}

}  // namespace

void ComboBox::Clear() {
  items_.clear();
  list_index_ = -1;
  text_.clear();
  Select(0, 0);
}

void ComboBox::AddItem(std::string entry) {
  items_.push_back(std::move(entry));
  Changed();
}

void ComboBox::SetListIndex(int position) {
  if (position < -1 || position >= ListCount()) throw Failure(kInvalidCall);
  const bool differs = position != list_index_;
  list_index_ = position;
  text_ = position < 0 ? std::string() : items_[static_cast<std::size_t>(position)];
  Select(0, 0);
  if (differs && Click) Click();
}

void ComboBox::SetText(std::string text) {
  if (text == text_) return;
  list_index_ = -1;
  sel_start_ = std::min(sel_start_, CharacterCount(text));
  sel_length_ = 0;
  if (Update(text_, std::move(text)) && Change) Change();
}

void ComboBox::Select(std::size_t start, std::size_t length) {
  sel_start_ = start;
  sel_length_ = length;
  Changed();
}

void ComboBox::UserSelect(int position) {
  if (!CanUse() || position < -1 || position >= ListCount()) return;
  SetListIndex(position);
}

void ComboBox::UserTypesCharacter(char32_t character) {
  if (!CanUse()) return;
  UserKeyDown(KeyCodeOf(character));
  UserKeyPress(static_cast<int>(character));
  if (character >= kFirstPrintable) {
    ReplaceSelection(std::u32string_view(&character, 1));
  } else if (character == kKeyBackspace) {
    if (sel_length_ == 0 && sel_start_ > 0) {
      --sel_start_;
      ++sel_length_;
    }
    ReplaceSelection({});
  }
}

void ComboBox::UserKeyDown(int code) const {
  if (CanUse() && KeyDown) KeyDown(code);
}

void ComboBox::UserKeyPress(int character) const {
  if (CanUse() && KeyPress) KeyPress(character);
}

void ComboBox::UserEmpties() {
  if (CanUse()) SetText("");
}

void ComboBox::UserLeaves() const {
  if (CanUse() && LostFocus) LostFocus();
}

void ComboBox::ReplaceSelection(std::u32string_view with) {
  std::u32string characters = Characters(text_);
  const std::size_t start = std::min(sel_start_, characters.size());
  characters.replace(start, std::min(sel_length_, characters.size() - start), with);
  const std::string text = ToUtf8(characters);
  Select(start + with.size(), 0);
  SetText(text);
}

}  // namespace brenwick

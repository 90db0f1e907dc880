#include "controls/TextBox.h"

#include "base/Text.h"

namespace brenwick {

void TextBox::SetText(std::string text) {
  if (text == text_) return;
  sel_start_ = 0;
  sel_length_ = 0;
  if (Update(text_, std::move(text)) && Change) Change();
}

void TextBox::Select(std::size_t start, std::size_t length) {
  sel_start_ = start;
  sel_length_ = length;
  Changed();
}

void TextBox::SelectAll() { Select(0, CharacterCount(text_)); }

void TextBox::UserTypes(std::string text) {
  if (CanUse() && !locked_) SetText(std::move(text));
}

void TextBox::UserLeaves() const {
  if (CanUse() && LostFocus) LostFocus();
}

}  // namespace brenwick

// A box with text.
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <utility>

#include "controls/Control.h"

namespace brenwick {

class TextBox : public Control {
 public:
  TextBox(Place place, std::string name, std::string text = "", int index = -1)
      : Control(place, std::move(name), index), text_(std::move(text)) {}

  const std::string& Text() const { return text_; }
  // Runs Change when the text differs.
  void SetText(std::string text);

  // A locked box shows its text and takes none from the user.
  bool Locked() const { return locked_; }
  void SetLocked(bool locked) { Update(locked_, locked); }

  // The number of characters that a short box holds; 0 for a box as wide as its page.
  int Columns() const { return columns_; }
  void SetColumns(int columns) { Update(columns_, columns); }

  // The selected part, in characters.
  std::size_t SelStart() const { return sel_start_; }
  std::size_t SelLength() const { return sel_length_; }
  void Select(std::size_t start, std::size_t length);
  void SelectAll();

  void UserTypes(std::string text);
  void UserLeaves() const;

  std::function<void()> Change;
  std::function<void()> LostFocus;

 private:
  std::string text_;
  bool locked_ = false;
  int columns_ = 0;
  std::size_t sel_start_ = 0;
  std::size_t sel_length_ = 0;
};

}  // namespace brenwick

// Check boxes, option buttons and command buttons.
#pragma once

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "controls/Control.h"

namespace brenwick {

// A box with a tick. Its click runs whenever the value changes, whoever changed it: loading the
// settings therefore has the same effects as the user's own clicks.
class CheckBox : public CaptionedControl {
 public:
  CheckBox(Place place, std::string name, std::string caption, bool ticked = false)
      : CaptionedControl(place, std::move(name), std::move(caption)), ticked_(ticked) {}

  bool Ticked() const { return ticked_; }
  void SetTicked(bool ticked);

  void UserClick();

  std::function<void()> Click;

 private:
  bool ticked_;
};

class OptionButton;

// Option buttons of which exactly one at a time is chosen.
class OptionGroup {
 private:
  friend class OptionButton;
  std::vector<OptionButton*> buttons_;
};

class OptionButton : public CaptionedControl {
 public:
  OptionButton(Place place, OptionGroup& group, std::string name, std::string caption,
               bool chosen = false);

  const OptionGroup& Group() const { return group_; }

  bool Chosen() const { return chosen_; }
  // Clears the others of the group and runs the click when the button was not chosen before.
  void Choose();

  void UserClick();  // with the mouse: chooses, then MouseUp
  void UserArrow();  // with the keyboard: only chooses

  std::function<void()> Click;
  std::function<void()> MouseUp;

 private:
  OptionGroup& group_;
  bool chosen_;
};

class Button : public CaptionedControl {
 public:
  // The key that presses the button from anywhere on its page.
  enum class Key { None, Enter, Escape };

  Button(Place place, std::string name, std::string caption, int index = -1, Key key = Key::None)
      : CaptionedControl(place, std::move(name), std::move(caption), index), key_(key) {}

  Key PressedBy() const { return key_; }

  void UserClick() const {
    if (CanUse() && Click) Click();
  }

  std::function<void()> Click;

 private:
  Key key_;
};

}  // namespace brenwick

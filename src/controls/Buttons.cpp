#include "controls/Buttons.h"

namespace brenwick {

void CheckBox::SetTicked(bool ticked) {
  if (Update(ticked_, ticked) && Click) Click();
}

void CheckBox::UserClick() {
  if (CanUse()) SetTicked(!ticked_);
}

OptionButton::OptionButton(Place place, OptionGroup& group, std::string name, std::string caption,
                           bool chosen)
    : CaptionedControl(place, std::move(name), std::move(caption)), group_(group), chosen_(chosen) {
  group_.buttons_.push_back(this);
}

void OptionButton::Choose() {
  for (OptionButton* other : group_.buttons_) {
    if (other != this) other->Update(other->chosen_, false);
  }
  if (Update(chosen_, true) && Click) Click();
}

void OptionButton::UserClick() {
  if (!CanUse()) return;
  Choose();
  if (MouseUp) MouseUp();
}

void OptionButton::UserArrow() {
  if (CanUse()) Choose();
}

}  // namespace brenwick

// Items of a popup menu.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "controls/Control.h"

namespace brenwick {

class MenuItem : public CaptionedControl {
 public:
  MenuItem(ControlList& window, std::string name, std::string caption, int index = -1)
      : CaptionedControl(Place{window, kNoPage}, std::move(name), std::move(caption), index) {}

  bool Checked() const { return checked_; }
  void SetChecked(bool checked) { Update(checked_, checked); }

  void UserClick() const {
    if (CanUse() && Click) Click();
  }

  std::function<void()> Click;

 private:
  bool checked_ = false;
};

// A menu item array that grows at run time. Elements are numbered from 0 and never go away;
// element 0 is there from the start.
class MenuItemArray {
 public:
  MenuItemArray(ControlList& window, std::string name, std::string caption)
      : window_(window), name_(std::move(name)) {
    Load(0).SetCaption(std::move(caption));
  }
  // Destroys the last item first: the window finds a recent control faster.
  ~MenuItemArray() {
    while (!items_.empty()) items_.pop_back();
  }
  MenuItemArray(const MenuItemArray&) = delete;
  MenuItemArray& operator=(const MenuItemArray&) = delete;

  int Count() const { return static_cast<int>(items_.size()); }
  MenuItem& operator[](int index) const { return *items_.at(static_cast<std::size_t>(index)); }

  // Makes the next element when `index` is the number of elements; an element that exists stays.
  MenuItem& Load(int index) {
    if (index == Count()) {
      items_.push_back(std::make_unique<MenuItem>(window_, name_, "", index));
      items_.back()->Click = [this, index] {
        if (Click) Click(index);
      };
    }
    return (*this)[index];
  }

  std::function<void(int)> Click;

 private:
  ControlList& window_;
  std::string name_;
  std::vector<std::unique_ptr<MenuItem>> items_;
};

}  // namespace brenwick

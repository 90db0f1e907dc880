// Controls that only show something.
#pragma once

#include <string>
#include <utility>

#include "controls/Control.h"

namespace brenwick {

class Label : public CaptionedControl {
 public:
  using CaptionedControl::CaptionedControl;
};

// A frame around other controls: an option page, or a group on one. Its position is in twips.
class Frame : public CaptionedControl {
 public:
  using CaptionedControl::CaptionedControl;

  int Left() const { return left_; }
  int Top() const { return top_; }
  void Move(int left, int top) {
    left_ = left;
    top_ = top;
    Changed();
  }

 private:
  int left_ = 0;
  int top_ = 0;
};

}  // namespace brenwick

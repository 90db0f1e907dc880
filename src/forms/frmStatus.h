// The small window that tells what a long operation is doing.
#pragma once

#include "controls/Labels.h"
#include "forms/Window.h"

namespace brenwick {

class frmStatus : public Window {
 public:
  Label lblStatus{Place{*this, kNoPage}, "lblStatus", ""};

  // In front of all other windows, in the middle of the screen.
  bool Topmost() const { return topmost_; }
  void SetTopmost() { topmost_ = true; }
  // Whether the user may close it; the program does that by itself.
  bool CloseBox() const { return close_box_; }
  void SetCloseBox(bool usable) { close_box_ = usable; }

 private:
  bool topmost_ = false;
  bool close_box_ = true;
};

}  // namespace brenwick

// Showing and hiding the status window.
#pragma once

#include <string>

#include "forms/cMousePointer.h"
#include "forms/frmStatus.h"
#include "platform/EventLoop.h"
#include "platform/System.h"

namespace brenwick {

class StatusWindow {
 public:
  StatusWindow(cMousePointer& pointer, EventLoop& loop, System& system)
      : pointer_(pointer), loop_(loop), system_(system) {}

  // true: shows the window with that text, in front of everything, and lets it paint.
  // false: takes it away; the text does not matter. The pointer is busy meanwhile.
  void StatusForm(bool show, const std::string& text = "");
  // Only the message line, whether the window shows or not.
  void SetText(const std::string& text) { form_.lblStatus.SetCaption(text); }

  frmStatus& Form() { return form_; }

 private:
  cMousePointer& pointer_;
  EventLoop& loop_;
  System& system_;
  frmStatus form_;
};

}  // namespace brenwick

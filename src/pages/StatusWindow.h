// Showing and hiding the status window.
#pragma once

#include <string>

#include "forms/frmStatus.h"
#include "pages/cMousePointer.h"
#include "platform/EventLoop.h"
#include "platform/Progress.h"
#include "platform/System.h"

namespace brenwick {

class StatusWindow : public Progress {
 public:
  StatusWindow(cMousePointer& pointer, EventLoop& loop, System& system)
      : pointer_(pointer), loop_(loop), system_(system) {}

  void SetHourglass(bool on) override { pointer_.SetHourglass(on); }
  // The pointer is busy meanwhile.
  void StatusForm(bool show, const std::string& text = "") override;
  void SetText(const std::string& text) override { form_.lblStatus.SetCaption(text); }

  frmStatus& Form() { return form_; }

 private:
  cMousePointer& pointer_;
  EventLoop& loop_;
  System& system_;
  frmStatus form_;
};

}  // namespace brenwick

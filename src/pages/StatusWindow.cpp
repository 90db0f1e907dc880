#include "pages/StatusWindow.h"

namespace brenwick {

void StatusWindow::StatusForm(bool show, const std::string& text) {
  pointer_.SetHourglass(true);
  if (show) {
    form_.SetCloseBox(false);
    form_.lblStatus.SetCaption(text);
    // The developers' debugger must not hide behind the window.
    if (!system_.DevelopmentEnvironment()) form_.SetTopmost();
    form_.Show();
    loop_.DoEvents();
  } else {
    form_.Hide();
  }
  pointer_.SetHourglass(false);
}

}  // namespace brenwick

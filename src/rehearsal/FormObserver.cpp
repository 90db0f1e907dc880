#include "rehearsal/FormObserver.h"

namespace brenwick {

FormObserver::FormObserver(frmMain& form, StatusWindow& status, Transcript& transcript)
    : form_(form), status_(status.Form()), transcript_(transcript) {
  ObserveWindow();
  ObserveStatus();
  ObserveFocus();
  Keep(form_.PopupMenuWanted.Observe([this] { WritePopup(); }));
}

void FormObserver::ObserveWindow() {
  const auto write = [this](const char* state) { transcript_.Write({{"window", state}}); };
  Keep(form_.CaptionChanged.Observe([this] { transcript_.Write({{"caption", form_.Caption()}}); }));
  Keep(form_.ForegroundWanted.Observe([write] { write("foreground"); }));
  Keep(form_.StateChanged.Observe([this, write] {
    if (form_.State() == WindowState::Minimized) {
      write("minimized");
    } else if (form_.Visible()) {
      write("shown");
    }
  }));
  Keep(form_.VisibilityChanged.Observe(
      [this, write] { write(form_.Visible() ? "shown" : "hidden"); }));
}

void FormObserver::ObserveStatus() {
  Keep(status_.VisibilityChanged.Observe([this] { StatusChanged(); }));
  Keep(status_.lblStatus.Changed.Observe([this] { StatusChanged(); }));
}

void FormObserver::StatusChanged() {
  std::optional<std::string> now;
  if (status_.Visible()) now = status_.lblStatus.Caption();
  if (now == shown_status_) return;
  shown_status_ = now;
  transcript_.Write({{"status", now ? Effect(*now) : Effect(nullptr)}});
}

void FormObserver::ObserveFocus() {
  for (Control* control : form_.Controls()) {
    Keep(control->FocusWanted.Observe([this, control] {
      Effect effect{{"focus", control->Name()}};
      if (control->Index() >= 0) effect["index"] = control->Index();
      transcript_.Write(effect);
    }));
  }
}

void FormObserver::WritePopup() {
  transcript_.Write({{"popup", form_.mPopupSys.Name()}, {"items", DescribeItems(form_.mPopupSys)}});
}

Effect FormObserver::DescribeItems(const MenuItem& menu) {
  Effect items = Effect::array();
  for (const MenuItem* item : form_.ItemsOf(menu)) {
    if (!item->Visible()) continue;
    Effect described{{"name", item->Name()}};
    if (item->Index() >= 0) described["index"] = item->Index();
    described["caption"] = item->Caption();
    described["checked"] = item->Checked();
    described["enabled"] = item->Enabled();
    if (!form_.ItemsOf(*item).empty()) described["items"] = DescribeItems(*item);
    items.push_back(described);
  }
  return items;
}

}  // namespace brenwick

// Watches the program's windows and writes down what a user would see happen.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "base/Observers.h"
#include "forms/frmMain.h"
#include "pages/StatusWindow.h"
#include "rehearsal/Transcript.h"

namespace brenwick {

class FormObserver {
 public:
  FormObserver(frmMain& form, StatusWindow& status, Transcript& transcript);

 private:
  void Keep(Subscription subscription) { subscriptions_.push_back(std::move(subscription)); }
  void ObserveWindow();
  void ObserveStatus();
  void ObserveFocus();
  void StatusChanged();
  void WritePopup();
  Effect DescribeItems(const MenuItem& menu);

  frmMain& form_;
  frmStatus& status_;
  Transcript& transcript_;
  std::optional<std::string> shown_status_;
  std::vector<Subscription> subscriptions_;
};

}  // namespace brenwick

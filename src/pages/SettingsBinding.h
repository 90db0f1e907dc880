// Keeps the values of the settings equal to the controls that show them.
#pragma once

#include <vector>

#include "base/Observers.h"
#include "forms/frmMain.h"
#include "pages/SettingsTable.h"
#include "settings/SettingsValues.h"

namespace brenwick {

class SettingsBinding {
 public:
  // Fills the values from the controls. From then on each change of a control, whoever makes it,
  // reaches its value before the control's own handlers (Click, Change) run. To be made before
  // anybody else observes the controls, so that every observer finds the new value too.
  SettingsBinding(frmMain& form, SettingsValues& values);
  SettingsBinding(const SettingsBinding&) = delete;
  SettingsBinding& operator=(const SettingsBinding&) = delete;

 private:
  void Bind(const SettingRow& row);
  void Follow(Control& control, const SettingRow& row);
  void Update(const SettingRow& row);

  frmMain& form_;
  SettingsValues& values_;
  std::vector<Subscription> subscriptions_;
};

}  // namespace brenwick

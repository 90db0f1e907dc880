// All settings at once: from the store into the controls and back, and the defaults of a page.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>

#include "base/ProgramState.h"
#include "forms/frmMain.h"
#include "language/TextTable.h"
#include "logging/Logs.h"
#include "pages/SettingsTable.h"
#include "platform/Progress.h"
#include "settings/Registry.h"
#include "settings/SettingsValues.h"

namespace brenwick {

class Settings {
 public:
  // The steps that other rooms take while all settings are loaded or saved.
  struct Steps {
    std::function<void()> SetLogCleanTimer;
    std::function<void()> LoadContacts;
    std::function<void()> SaveContacts;
    std::function<void()> UseRepeatHotKeys;
  };

  // The values are those of the form's controls at every moment (pages/SettingsBinding.h).
  Settings(Logs& log, ProgramState& state, frmMain& form, const SettingsValues& values,
           const TextTable& texts, Progress& progress, Registry& registry, Steps steps)
      : log_(log),
        state_(state),
        form_(form),
        values_(values),
        texts_(texts),
        progress_(progress),
        registry_(registry),
        steps_(std::move(steps)) {}

  // Fills the controls from the store, with everything that their clicks bring about, and loads
  // the contact list. An empty store is first filled with the defaults.
  void GetAllSettings();

  // True once every setting was read: only then do the controls hold what may be saved.
  bool Loaded() const { return loaded_; }

  // Writes the controls to the store and saves the contact list; gridsOnly: other than 0 writes the
  // sort orders alone.
  void SaveAllSettings(std::int16_t gridsOnly);

  // Resets the controls of a page: 0 General, 1 Text, 2 User; no other number does anything. The
  // store is not touched.
  void Application_Defaults(std::int16_t page);

 private:
  void FillEmptyStore();
  void ReadKey(const char* key);
  void Read(const SettingRow& row);
  void SaveKey(const char* key);
  void Save(const SettingRow& row);
  std::optional<std::string> TextToSave(const SettingRow& row);
  void Reset(const SettingRow& row);
  void SaveToStore(bool gridsOnly);
  void FailToSave(const char* key);
  std::string Resolve(const FixedText& text) const;

  Logs& log_;
  ProgramState& state_;
  frmMain& form_;
  const SettingsValues& values_;
  const TextTable& texts_;
  Progress& progress_;
  Registry& registry_;
  Steps steps_;
  bool loaded_ = false;
};

}  // namespace brenwick

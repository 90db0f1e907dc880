#include "pages/SettingsBinding.h"

namespace brenwick {

SettingsBinding::SettingsBinding(frmMain& form, SettingsValues& values)
    : form_(form), values_(values) {
  for (const SettingRow& row : SettingsTable()) Bind(row);
}

void SettingsBinding::Bind(const SettingRow& row) {
  std::visit(ByKind{
                 [&](const FlagBox& flag) { Follow(form_.*flag.box, row); },
                 [&](const TypedText& typed) { Follow(form_.*typed.box, row); },
                 [&](const SortOptions& sort) {
                   Follow(form_.*sort.email, row);
                   Follow(form_.*sort.name, row);
                   Follow(form_.*sort.contact, row);
                 },
                 [&](const VoiceOptions& voice) {
                   Follow(form_.*voice.female, row);
                   Follow(form_.*voice.male, row);
                 },
                 [&](const ChosenText& chosen) { Follow(form_.*chosen.combo, row); },
                 [&](const StartEntry& start) { Follow(form_.*start.box, row); },
             },
             row.binding);
  Update(row);
}

void SettingsBinding::Follow(Control& control, const SettingRow& row) {
  subscriptions_.push_back(control.Changed.Observe([this, &row] { Update(row); }));
}

void SettingsBinding::Update(const SettingRow& row) {
  std::visit(
      ByKind{
          [&](const FlagBox& flag) { values_.*flag.value = (form_.*flag.box).Ticked(); },
          [&](const TypedText& typed) { values_.*typed.value = (form_.*typed.box).Text(); },
          [&](const SortOptions& sort) {
            values_.*sort.value = (form_.*sort.email).Chosen()  ? SortOrder::Email
                                  : (form_.*sort.name).Chosen() ? SortOrder::Name
                                                                : SortOrder::Contact;
          },
          [&](const VoiceOptions& voice) {
            values_.*voice.value = (form_.*voice.female).Chosen() ? "F" : "M";
          },
          [&](const ChosenText& chosen) {
            const ComboBox& combo = form_.*chosen.combo;
            values_.*chosen.value = {combo.ListIndex(), combo.Text()};
          },
          [&](const StartEntry& start) { values_.*start.value = (form_.*start.box).Ticked(); },
      },
      row.binding);
}

}  // namespace brenwick

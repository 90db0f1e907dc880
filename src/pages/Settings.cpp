#include "pages/Settings.h"

#include <algorithm>
#include <vector>

#include "settings/SettingsKeys.h"

namespace brenwick {
namespace {

constexpr const char* kModule = "modFunctions";

const char* Letter(SortOrder order) {
  switch (order) {
    case SortOrder::Email:
      return "E";
    case SortOrder::Name:
      return "M";
    case SortOrder::Contact:
      break;
  }
  return "C";
}

}  // namespace

void Settings::GetAllSettings() {
  log_.Trap(kModule, "GetAllSettings", [&] {
    log_.DebugWrite("GetAllSettings", "Start");
    progress_.SetText(texts_.LoadText(84));
    FillEmptyStore();
    ReadKey(kGeneralKey);
    state_.Language = registry_.ReadText(kGeneralKey, "Language");
    ReadKey(kRunKey);
    ReadKey(kUserKey);
    steps_.SetLogCleanTimer();
    ReadKey(kGridsKey);
    ReadKey(kVoicesKey);
    ReadKey(kTextKey);
    loaded_ = true;
    steps_.LoadContacts();
    steps_.UseRepeatHotKeys();
    // The line that ends the reading names the procedure that saves.
    log_.DebugWrite("SaveAllSettings", "Finish");
  });
}

// A store without this value is taken for one that nobody has written yet. One that merely expands
// to nothing today was written.
void Settings::FillEmptyStore() {
  const auto stored = registry_.Store().ReadValue(kTextKey, "Online");
  if (stored && !stored->text.empty()) return;
  if (!registry_.ReadText(kTextKey, "Online").empty()) return;
  for (std::int16_t page = 0; page <= 2; ++page) Application_Defaults(page);
  SaveAllSettings(0);
}

void Settings::ReadKey(const char* key) {
  for (const int turn : {0, 1}) {
    for (const SettingRow& row : SettingsTable()) {
      if (row.key == std::string_view(key) && row.read_turn == turn) Read(row);
    }
  }
}

void Settings::Read(const SettingRow& row) {
  const auto stored = [&] { return registry_.ReadText(row.key, row.name); };
  std::visit(
      ByKind{
          [&](const FlagBox& flag) { (form_.*flag.box).SetTicked(stored() == "1"); },
          [&](const TypedText& typed) {
            const std::string text = stored();
            (form_.*typed.box).SetText(text.empty() ? Resolve(row.fallback) : text);
          },
          [&](const SortOptions& sort) {
            const std::string order = stored();
            (form_.*(order == "E" ? sort.email : order == "M" ? sort.name : sort.contact)).Choose();
          },
          [&](const VoiceOptions& voice) {
            (form_.*(stored() == "F" ? voice.female : voice.male)).Choose();
          },
          [](const ChosenText&) {},
          // Whether the program starts with the system is not kept twice: the box shows the entry
          // itself.
          [&](const StartEntry& start) { (form_.*start.box).SetTicked(!stored().empty()); },
      },
      row.binding);
}

void Settings::SaveAllSettings(std::int16_t gridsOnly) {
  log_.Trap(kModule, "SaveAllSettings", [&] {
    const bool all = gridsOnly == 0;
    if (all) {
      log_.DebugWrite("SaveAllSettings", "Start");
      progress_.StatusForm(true, texts_.LoadText(83));
    }
    SaveToStore(!all);
    if (!all) return;
    steps_.SaveContacts();
    progress_.StatusForm(false);
    log_.DebugWrite("SaveAllSettings", "Finish");
  });
}

// The store gets all values or none.
void Settings::SaveToStore(bool gridsOnly) {
  Batch batch(registry_.Store());
  if (!gridsOnly) {
    SaveKey(kGeneralKey);
    SaveKey(kUserKey);
  }
  SaveKey(kGridsKey);
  if (!gridsOnly) {
    SaveKey(kVoicesKey);
    SaveKey(kTextKey);
  }
  if (!batch.Flush()) FailToSave(gridsOnly ? kGridsKey : kGeneralKey);
}

// All values failed together; the message names the first.
void Settings::FailToSave(const char* key) {
  for (const SettingRow& row : SettingsTable()) {
    if (row.key != std::string_view(key)) continue;
    cRegistry access = registry_.OpenRegistryKey(row.key);
    access.ValueKey = row.name;
    access.FailToSet(TextToSave(row).value_or(""));
  }
}

void Settings::SaveKey(const char* key) {
  for (const SettingRow& row : SettingsTable()) {
    if (row.key == std::string_view(key)) Save(row);
  }
}

void Settings::Save(const SettingRow& row) {
  const std::optional<std::string> text = TextToSave(row);
  if (text) registry_.WriteText(row.key, row.name, *text);
}

// Nothing for a row that is not saved now.
std::optional<std::string> Settings::TextToSave(const SettingRow& row) {
  using Text = std::optional<std::string>;
  return std::visit(
      ByKind{
          [&](const FlagBox& flag) -> Text { return values_.*flag.value ? "1" : "0"; },
          [&](const TypedText& typed) -> Text {
            if ((values_.*typed.value).empty()) (form_.*typed.box).SetText(row.blank);
            return values_.*typed.value;
          },
          [&](const SortOptions& sort) -> Text { return Letter(values_.*sort.value); },
          [&](const VoiceOptions& voice) -> Text { return values_.*voice.value; },
          [&](const ChosenText& chosen) -> Text {
            const ChosenEntry& entry = values_.*chosen.value;
            if (chosen.entries_only && entry.position < 0) return std::nullopt;
            return entry.text.empty() ? std::nullopt : std::optional(entry.text);
          },
          // The box's own click writes the entry.
          [](const StartEntry&) -> Text { return std::nullopt; },
      },
      row.binding);
}

void Settings::Application_Defaults(std::int16_t page) {
  log_.Trap(kModule, "Application_Defaults", [&] {
    std::vector<const SettingRow*> rows;
    for (const SettingRow& row : SettingsTable()) {
      if (row.page == page) rows.push_back(&row);
    }
    std::stable_sort(rows.begin(), rows.end(),
                     [](const auto* a, const auto* b) { return a->reset_turn < b->reset_turn; });
    for (const SettingRow* row : rows) Reset(*row);
  });
}

void Settings::Reset(const SettingRow& row) {
  const std::string value = Resolve(row.reset);
  if (const auto* flag = std::get_if<FlagBox>(&row.binding)) {
    (form_.*flag->box).SetTicked(value == "1");
  } else if (const auto* typed = std::get_if<TypedText>(&row.binding)) {
    (form_.*typed->box).SetText(value);
  } else if (const auto* start = std::get_if<StartEntry>(&row.binding)) {
    (form_.*start->box).SetTicked(value == "1");
  }
}

std::string Settings::Resolve(const FixedText& text) const {
  if (text.id != 0) return texts_.LoadText(text.id);
  return text.literal == nullptr ? std::string() : text.literal;
}

}  // namespace brenwick

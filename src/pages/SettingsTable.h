// Every persisted setting, one row each: where it is stored, which control shows it, which value
// holds it, and what it is when nothing is stored. Load, save, defaults and the binding of control
// and value are loops over this table.
#pragma once

#include <cstdint>
#include <span>
#include <variant>

#include "forms/frmMain.h"
#include "settings/SettingsValues.h"

namespace brenwick {

// Stored as "1" and "0".
struct FlagBox {
  CheckBox frmMain::*box;
  bool SettingsValues::*value;
};

struct TypedText {
  TextBox frmMain::*box;
  std::string SettingsValues::*value;
};

// The options of a contact list's sort order, stored as "E", "M" and "C".
struct SortOptions {
  OptionButton frmMain::*email;    // E
  OptionButton frmMain::*name;     // M
  OptionButton frmMain::*contact;  // C, and everything else
  SortOrder SettingsValues::*value;
};

// "F" when the first is chosen, else "M".
struct VoiceOptions {
  OptionButton frmMain::*female;
  OptionButton frmMain::*male;
  std::string SettingsValues::*value;
};

// The text of a combo box, stored unless it is empty and read elsewhere.
struct ChosenText {
  ComboBox frmMain::*combo;
  ChosenEntry SettingsValues::*value;
  bool entries_only = false;  // a text that is no entry of the box is not stored
};

// The entry that starts the program with the system; the box writes it at its click.
struct StartEntry {
  CheckBox frmMain::*box;
  bool SettingsValues::*value;
};

// A text of the language, or a literal one.
struct FixedText {
  std::int16_t id = 0;
  const char* literal = nullptr;
};

struct SettingRow {
  const char* key;
  const char* name;
  std::variant<FlagBox, TypedText, SortOptions, VoiceOptions, ChosenText, StartEntry> binding;
  int page = -1;                // the page of defaults that resets it; −1: none does
  FixedText reset = {};         // what that page sets it to
  FixedText fallback = {};      // what an empty stored text is read as
  const char* blank = nullptr;  // what an empty box is set to before it is saved
  int reset_turn = 0;           // rows of a page are reset by rising turn, and by place within one
  int read_turn = 0;            // rows of a key are read by rising turn, and by place within one
};

// In the order in which they are saved.
std::span<const SettingRow> SettingsTable();

// Combines functions, one a kind of binding, for std::visit.
template <typename... Cases>
struct ByKind : Cases... {
  using Cases::operator()...;
};
template <typename... Cases>
ByKind(Cases...) -> ByKind<Cases...>;

}  // namespace brenwick

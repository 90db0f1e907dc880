// Every persisted setting, one row each: where it is stored, which control shows it, and what it is
// when nothing is stored. Load, save and defaults are loops over this table.
#pragma once

#include <cstdint>
#include <span>
#include <variant>

#include "forms/frmMain.h"

namespace brenwick {

inline constexpr const char* kBrenwickKey = "Software\\Brenwick";
inline constexpr const char* kGeneralKey = "Software\\Brenwick\\General";
inline constexpr const char* kUserKey = "Software\\Brenwick\\User";
inline constexpr const char* kGridsKey = "Software\\Brenwick\\Grids";
inline constexpr const char* kVoicesKey = "Software\\Brenwick\\Voices";
inline constexpr const char* kTextKey = "Software\\Brenwick\\Text";
inline constexpr const char* kRunKey = "Software\\Microsoft\\Windows\\CurrentVersion\\Run";

// The options of a contact list's sort order, stored as "E", "M" and "C".
struct SortOptions {
  OptionButton frmMain::*email;    // E
  OptionButton frmMain::*name;     // M
  OptionButton frmMain::*contact;  // C, and everything else
};

// "F" when optFemale is chosen, else "M".
struct DefaultVoiceOptions {};

// The text of a combo box, stored unless it is empty and read elsewhere.
struct ChosenText {
  ComboBox frmMain::*combo;
  bool entries_only = false;  // a text that is no entry of the box is not stored
};

// The entry that starts the program with the system; chkStartWithWindows writes it at its click.
struct StartEntry {};

// A text of the language, or a literal one.
struct FixedText {
  std::int16_t id = 0;
  const char* literal = nullptr;
  bool None() const { return id == 0 && literal == nullptr; }
};

struct SettingRow {
  const char* key;
  const char* name;
  std::variant<CheckBox frmMain::*, TextBox frmMain::*, SortOptions, DefaultVoiceOptions,
               ChosenText, StartEntry>
      control;
  int page = -1;                // the page of defaults that resets it; −1: none does
  FixedText reset = {};         // what that page sets it to
  FixedText fallback = {};      // what an empty stored text is read as
  const char* blank = nullptr;  // what an empty box is set to before it is saved
  int reset_turn = 0;           // rows of a page are reset by rising turn, and by place within one
  int read_turn = 0;            // rows of a key are read by rising turn, and by place within one
};

// In the order in which they are saved.
std::span<const SettingRow> SettingsTable();

}  // namespace brenwick

#include "desktop/hotkeys/X11Keyboard.h"

#include <cctype>
#include <cstddef>
#include <string_view>

#include "desktop/x11/X11Reply.h"

namespace brenwick {
namespace {

constexpr xcb_keysym_t kScrollLock = 0xff14;
constexpr xcb_keysym_t kNumLock = 0xff7f;
constexpr int kScrollLockKey = 0x91;

xcb_keysym_t SymbolOf(const HotKey& key) {
  // Letters and digits have their character for a symbol.
  return key.vkey == kScrollLockKey ? kScrollLock
                                    : static_cast<xcb_keysym_t>(std::tolower(key.vkey));
}

// The letters and digits of an American keyboard, row by row, and their first key codes.
xcb_keycode_t AmericanPlace(const HotKey& key) {
  constexpr struct {
    const char* keys;
    int first;
  } kRows[] = {{"1234567890", 10}, {"QWERTYUIOP", 24}, {"ASDFGHJKL", 38}, {"ZXCVBNM", 52}};
  for (const auto& row : kRows) {
    const std::string_view keys = row.keys;
    const std::size_t found = keys.find(static_cast<char>(key.vkey));
    if (found != std::string_view::npos) {
      return static_cast<xcb_keycode_t>(row.first + static_cast<int>(found));
    }
  }
  return 78;  // Scroll Lock
}

std::uint16_t Modifiers(const HotKey& key) {
  int modifiers = 0;
  if (key.shiftkey) modifiers |= XCB_MOD_MASK_SHIFT;
  if (key.ctrlkey) modifiers |= XCB_MOD_MASK_CONTROL;
  if (key.winkey) modifiers |= XCB_MOD_MASK_4;
  return static_cast<std::uint16_t>(modifiers);
}

}  // namespace

X11Keyboard::X11Keyboard(xcb_connection_t* display) {
  ReadSymbols(display);
  ReadLocks(display);
}

void X11Keyboard::ReadSymbols(xcb_connection_t* display) {
  const xcb_setup_t* setup = xcb_get_setup(display);
  first_ = setup->min_keycode;
  const auto count = static_cast<std::uint8_t>(setup->max_keycode - setup->min_keycode + 1);
  const auto asked = xcb_get_keyboard_mapping(display, setup->min_keycode, count);
  const X11Reply<xcb_get_keyboard_mapping_reply_t> reply(
      xcb_get_keyboard_mapping_reply(display, asked, nullptr));
  if (!reply) return;
  columns_ = reply->keysyms_per_keycode;
  const xcb_keysym_t* symbols = xcb_get_keyboard_mapping_keysyms(reply.get());
  symbols_.assign(symbols, symbols + xcb_get_keyboard_mapping_keysyms_length(reply.get()));
}

// Num Lock is on one of the modifiers that are free for use, and Scroll Lock may be on another.
void X11Keyboard::ReadLocks(xcb_connection_t* display) {
  const auto asked = xcb_get_modifier_mapping(display);
  const X11Reply<xcb_get_modifier_mapping_reply_t> reply(
      xcb_get_modifier_mapping_reply(display, asked, nullptr));
  if (!reply) return;
  const xcb_keycode_t* codes = xcb_get_modifier_mapping_keycodes(reply.get());
  for (int i = 0; i < 8 * reply->keycodes_per_modifier; ++i) {
    const int modifier = 1 << (i / reply->keycodes_per_modifier);
    const bool lock = Bears(codes[i], kNumLock) || Bears(codes[i], kScrollLock);
    if (lock && modifier >= XCB_MOD_MASK_1) locks_ |= static_cast<std::uint16_t>(modifier);
  }
}

xcb_keysym_t X11Keyboard::Symbol(xcb_keycode_t code, int column) const {
  const int place = (code - first_) * columns_ + column;
  const bool known = code >= first_ && column < columns_ && std::size_t(place) < symbols_.size();
  return known ? symbols_[std::size_t(place)] : XCB_NO_SYMBOL;
}

bool X11Keyboard::Bears(xcb_keycode_t code, xcb_keysym_t symbol) const {
  for (int column = 0; column < columns_; ++column) {
    if (Symbol(code, column) == symbol) return true;
  }
  return false;
}

KeyCombination X11Keyboard::Find(const HotKey& key) const {
  const xcb_keysym_t symbol = SymbolOf(key);
  const int last = columns_ == 0 ? first_ : first_ + int(symbols_.size()) / columns_;
  // The four levels of the first layout, then those of the second.
  for (const int column : {0, 1, 4, 5, 2, 3, 6, 7}) {
    for (int code = first_; code < last; ++code) {
      const auto candidate = static_cast<xcb_keycode_t>(code);
      if (Symbol(candidate, column) == symbol) return {candidate, Modifiers(key)};
    }
  }
  return {AmericanPlace(key), Modifiers(key)};
}

std::vector<std::uint16_t> X11Keyboard::ChoicesOfLocks() const {
  std::vector<std::uint16_t> choices = {0};
  for (int modifier = 1; modifier <= XCB_MOD_MASK_5; modifier <<= 1) {
    if ((locks_ & modifier) == 0) continue;
    const std::vector<std::uint16_t> without = choices;
    for (const int choice : without) {
      choices.push_back(static_cast<std::uint16_t>(choice | modifier));
    }
  }
  return choices;
}

}  // namespace brenwick

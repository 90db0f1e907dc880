// Finds keys on the keyboard of an X11 display.
#pragma once

#include <xcb/xcb.h>

#include <cstdint>
#include <vector>

#include "controls/HotKeyControl.h"

namespace brenwick {

// A key with the modifiers that are held with it.
struct KeyCombination {
  xcb_keycode_t code;
  std::uint16_t modifiers;

  bool operator==(const KeyCombination&) const = default;
};

class X11Keyboard {
 public:
  // Reads the layout that the display has now.
  explicit X11Keyboard(xcb_connection_t* display);

  // The key that bears the hotkey's letter or digit, on whichever level: where digits need the
  // shift key, Ctrl+Shift+1 is still that key. Where no key bears it, as under a layout without
  // Latin letters, the key in its place on an American keyboard.
  KeyCombination Find(const HotKey& key) const;

  // Modifiers that are on for as long as the user likes, such as Num Lock.
  std::uint16_t Locks() const { return locks_; }
  // Every choice among them, none included.
  std::vector<std::uint16_t> ChoicesOfLocks() const;

 private:
  xcb_keysym_t Symbol(xcb_keycode_t code, int column) const;
  bool Bears(xcb_keycode_t code, xcb_keysym_t symbol) const;
  void ReadSymbols(xcb_connection_t* display);
  void ReadLocks(xcb_connection_t* display);

  int first_ = 0;    // the lowest key code
  int columns_ = 0;  // symbols of one key
  std::vector<xcb_keysym_t> symbols_;
  std::uint16_t locks_ = XCB_MOD_MASK_LOCK;
};

}  // namespace brenwick

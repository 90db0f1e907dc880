#include "controls/HotKeyControl.h"

namespace brenwick {

std::string KeyName(const HotKey& key) {
  constexpr int kScrollLock = 0x91;
  std::string name;
  if (key.ctrlkey) name += "Ctrl+";
  if (key.shiftkey) name += "Shift+";
  if (key.winkey) name += "Win+";
  // The virtual key code of a letter or a digit is its character.
  return name + (key.vkey == kScrollLock ? "Scroll Lock" : std::string(1, char(key.vkey)));
}

}  // namespace brenwick

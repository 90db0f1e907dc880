// A key combination that works whichever program has the focus. The world grabs it while it is
// enabled.
#pragma once

#include <functional>
#include <string>
#include <utility>

#include "controls/Control.h"

namespace brenwick {

struct HotKey {
  int vkey;  // virtual key code
  bool ctrlkey = false;
  bool shiftkey = false;
  bool winkey = false;
};

class HotKeyControl : public Control {
 public:
  HotKeyControl(ControlList& window, std::string name, HotKey key, bool enabled, int index = -1)
      : Control(Place{window, kNoPage}, std::move(name), index), key_(key) {
    SetEnabled(enabled);
  }

  const HotKey& Key() const { return key_; }

  void UserPress() const {
    if (CanUse() && HotkeyPressed) HotkeyPressed();
  }

  std::function<void()> HotkeyPressed;

 private:
  HotKey key_;
};

}  // namespace brenwick

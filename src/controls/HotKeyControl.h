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

// The keys as the user reads them, such as "Ctrl+Shift+1" or "Scroll Lock".
std::string KeyName(const HotKey& key);

// The reason why a key does not reach its control.
struct KeyObstacle {
  enum class Kind {
    None,
    Taken,     // another program has the key
    NotGiven,  // this desktop gives programs no keys
  };
  Kind kind = Kind::None;
  std::string command = {};  // where keys are not given: the command that does what the key would

  bool operator==(const KeyObstacle&) const = default;
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

  // The world tells what it met when it last asked for the key; KeyObstacle{} when it got it.
  void SetObstacle(KeyObstacle obstacle) { Update(obstacle_, std::move(obstacle)); }
  const KeyObstacle& Obstacle() const { return obstacle_; }

  std::function<void()> HotkeyPressed;

 private:
  HotKey key_;
  KeyObstacle obstacle_;
};

}  // namespace brenwick

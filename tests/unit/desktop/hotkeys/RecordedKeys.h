// Which hotkeys of a form were pressed: each adds its letter or number.
#pragma once

#include <string>

#include "forms/frmMain.h"

namespace brenwick {

class RecordedKeys {
 public:
  explicit RecordedKeys(frmMain& form) {
    form.ocxHotKeySilent.SetEnabled(true);
    form.ocxHotKeySilent.HotkeyPressed = [this] { pressed += "S"; };
    form.ocxHotKeyActivateBW.HotkeyPressed = [this] { pressed += "T"; };
    for (HotKeyControl& key : form.ocxSpeakMsg1) {
      key.HotkeyPressed = [this, &key] { pressed += std::to_string(key.Index() + 1); };
    }
  }
  RecordedKeys(const RecordedKeys&) = delete;
  RecordedKeys& operator=(const RecordedKeys&) = delete;

  std::string pressed;
};

}  // namespace brenwick

// One connection on its page: what it is called, how it is, and a button to try it.
#pragma once

#include <string>

#include "controls/Buttons.h"
#include "controls/Labels.h"
#include "controls/TextBox.h"

namespace brenwick {

struct ConnectionControls {
  ConnectionControls(Place place, const std::string& kind, int index)
      : lblName(place, "lbl" + kind, "", index),
        txtState(place, "txt" + kind, "", index),
        cmdTest(place, "cmdTest" + kind, "Test", index) {
    txtState.SetLocked(true);
  }

  Label lblName;
  TextBox txtState;
  Button cmdTest;
};

}  // namespace brenwick

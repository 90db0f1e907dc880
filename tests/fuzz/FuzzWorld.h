// What the targets share that run parts of the program in a world of fakes.
#pragma once

#include "base/Failure.h"
#include "fuzz/Fuzz.h"
#include "support/Fakes.h"

namespace brenwick {

// True: the action came to its end. False: it ended the program. Any exception is a finding.
template <typename Action>
bool ComesToItsEnd(Action action) {
  try {
    action();
  } catch (const ProgramEnd&) {
    return false;
  }
  return true;
}

// The user was shown one error report and nothing else.
inline bool ShowsErrorReport(const FakeScreen& screen) {
  return screen.boxes.size() == 1 && screen.boxes[0].text.starts_with("Error (") &&
         screen.boxes[0].title.starts_with("Unexpected Error!");
}

}  // namespace brenwick

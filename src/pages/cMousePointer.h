// The busy pointer, counted: it stays until the outermost busy section has ended.
#pragma once

#include <cstdint>

#include "base/Numbers.h"
#include "platform/Screen.h"

namespace brenwick {

class cMousePointer {
 public:
  explicit cMousePointer(Screen& screen) : screen_(screen) {}

  // One busy section more, or one less; below one the pointer is the default one. Raises kOverflow
  // past the 16-bit range.
  void SetHourglass(bool on) {
    count_ = ToInteger16(count_ + (on ? 1 : -1));
    ShowPointer();
  }
  // Ends all busy sections.
  void ClearHourglass() {
    count_ = 0;
    ShowPointer();
  }

 private:
  void ShowPointer() { screen_.SetPointer(count_ < 1 ? Pointer::Default : Pointer::Hourglass); }

  Screen& screen_;
  std::int16_t count_ = 0;
};

}  // namespace brenwick

// The busy pointer, counted: it stays until the outermost busy section has ended.
#pragma once

#include <cstdint>

#include "platform/Screen.h"

namespace brenwick {

class cMousePointer {
 public:
  explicit cMousePointer(Screen& screen) : screen_(screen) {}

  // One busy section more, or one less; below one the pointer is the default one. Raises kOverflow
  // past the 16-bit range.
  void SetHourglass(bool on);
  // Ends all busy sections.
  void ClearHourglass();

 private:
  void ShowPointer();

  Screen& screen_;
  std::int16_t count_ = 0;
};

}  // namespace brenwick

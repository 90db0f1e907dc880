#include "forms/cMousePointer.h"

#include "base/Numbers.h"

namespace brenwick {

void cMousePointer::SetHourglass(bool on) {
  count_ = ToInteger16(count_ + (on ? 1 : -1));
  ShowPointer();
}

void cMousePointer::ClearHourglass() {
  count_ = 0;
  ShowPointer();
}

void cMousePointer::ShowPointer() {
  screen_.SetPointer(count_ < 1 ? Pointer::Default : Pointer::Hourglass);
}

}  // namespace brenwick

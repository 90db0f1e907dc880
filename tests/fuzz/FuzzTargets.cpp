#include "fuzz/Fuzz.h"

namespace brenwick {

FuzzTarget::FuzzTarget(const char* called, Check function) : name(called), check(function) {
  FuzzTargets().push_back(*this);
}

std::vector<FuzzTarget>& FuzzTargets() {
  static std::vector<FuzzTarget> targets;
  return targets;
}

}  // namespace brenwick

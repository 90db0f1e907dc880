// Version numbers from a server that may send anything.
#include <cstdint>

#include "base/Failure.h"
#include "fuzz/Fuzz.h"
#include "web/VersionNumber.h"

namespace brenwick {
namespace {

std::string Written(const VersionNumber& version) {
  return std::to_string(version.major) + "." + std::to_string(version.minor) + "." +
         std::to_string(version.third) + "." + std::to_string(version.last);
}

void Check(std::string_view text) {
  VersionNumber version;
  try {
    version = ParseVersion(text);
  } catch (const Failure& failure) {
    Expect(failure.Number() == kOverflow, "only a part that is too large fails");
    return;
  }
  Expect(ParseVersion(Written(version)) == version, "a version written out is read again");
  Expect(!(version < version) && version <= version, "a version is not newer than itself");
}

const FuzzTarget kTarget("version", Check);

}  // namespace
}  // namespace brenwick

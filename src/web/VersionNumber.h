// Version numbers of four parts, as the version check compares them.
#pragma once

#include <compare>
#include <cstdint>
#include <string_view>

namespace brenwick {

struct VersionNumber {
  std::int16_t major = 0;
  std::int16_t minor = 0;
  std::int16_t third = 0;
  std::int16_t last = 0;

  // clang-tidy 14 takes the 0 that an ordering is compared with for a pointer.
  auto operator<=>(const VersionNumber&) const = default;  // NOLINT(modernize-use-nullptr)
};

// The first three full stops end the first three parts; what stands behind the last of these stops
// is the last part, so that "3.1.200" is 3, 1, 0, 200. A text without a full stop is the major part
// alone. Each part is the number that its text starts with, 0 without one; kOverflow is raised for
// a part outside the 16-bit range.
VersionNumber ParseVersion(std::string_view text);

}  // namespace brenwick

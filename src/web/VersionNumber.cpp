#include "web/VersionNumber.h"

#include <cstddef>

#include "base/Numbers.h"

namespace brenwick {

VersionNumber ParseVersion(std::string_view text) {
  VersionNumber version;
  bool cut = false;
  for (std::int16_t* part : {&version.major, &version.minor, &version.third}) {
    const std::size_t stop = text.find('.');
    if (stop == std::string_view::npos) break;
    *part = LeadingInteger16(text.substr(0, stop));
    text.remove_prefix(stop + 1);
    cut = true;
  }
  (cut ? version.last : version.major) = LeadingInteger16(text);
  return version;
}

}  // namespace brenwick

// The description of a Windows system, from the version that it tells of itself.
#pragma once

#include <cstdint>
#include <string>

namespace brenwick {

// The version that a system tells. NT systems have platform 2, the older ones platform 1.
struct OSVersionRecord {
  std::uint32_t platform = 0;
  std::uint32_t major = 0;
  std::uint32_t minor = 0;
  std::uint32_t build = 0;
  std::string service_pack;  // what stands behind a zero character does not count
};

// Two lines with CR LF between them: "Microsoft Windows XP Service Pack 2*", "Build: 5.1.2600".
std::string GetOSVersion(const OSVersionRecord& version);

}  // namespace brenwick

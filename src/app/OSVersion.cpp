#include "app/OSVersion.h"

namespace brenwick {
namespace {

constexpr std::uint32_t kPlatformNT = 2;

const char* NameOfNT(std::uint32_t major, std::uint32_t minor) {
  if (major == 3) return "NT3.51";
  if (major == 4) return "NT4";
  if (major != 5) return "NT?";
  if (minor == 0) return "2000";
  return minor == 1 ? "XP" : "NT5?";
}

const char* NameOfOlder(std::uint32_t major, std::uint32_t minor) {
  if (major == 5) return "ME?";
  if (major != 4) return "Win?";
  if (minor == 0) return "95";
  if (minor == 10) return "98";
  return minor == 90 ? "ME" : "9x?";
}

}  // namespace

std::string GetOSVersion(const OSVersionRecord& version) {
  std::string text = "Microsoft Windows ";
  text += version.platform == kPlatformNT ? NameOfNT(version.major, version.minor)
                                          : NameOfOlder(version.major, version.minor);
  const std::string pack = version.service_pack.substr(0, version.service_pack.find('\0'));
  if (!pack.empty()) text += " " + pack;
  return text + "*\r\nBuild: " + std::to_string(version.major) + "." +
         std::to_string(version.minor) + "." + std::to_string(version.build);
}

}  // namespace brenwick

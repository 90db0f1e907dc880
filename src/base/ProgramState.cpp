#include "base/ProgramState.h"

namespace brenwick {

const char* const kPublisher = BRENWICK_PUBLISHER;

std::string ProgramVersion::Padded() const {
  std::string digits = std::to_string(revision);
  if (digits.size() < 4) digits.insert(0, 4 - digits.size(), '0');
  return std::to_string(major) + "." + std::to_string(minor) + "." + digits;
}

std::string ProgramVersion::Plain() const {
  return std::to_string(major) + "." + std::to_string(minor) + "." + std::to_string(revision);
}

std::string VersionText(const ProgramVersion& version) {
  return std::string(kTitle) + ", " + version.Padded();
}

}  // namespace brenwick

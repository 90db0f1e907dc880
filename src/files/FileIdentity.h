// Tells whether a file is still the one that was looked at.
#pragma once

#include <cstdint>
#include <string>

namespace brenwick {

// All zero where there is no file.
struct FileIdentity {
  std::uint64_t device = 0;
  std::uint64_t number = 0;
  std::int64_t size = 0;
  std::int64_t seconds = 0;
  std::int64_t nanoseconds = 0;
  bool operator==(const FileIdentity&) const = default;
};

FileIdentity IdentityOf(const std::string& path);
// Of an open file.
FileIdentity IdentityOf(int descriptor);

}  // namespace brenwick

// What the fuzz targets share. A target is one function that takes any bytes at all; a finding ends
// the process.
#pragma once

#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>
#include <vector>

namespace brenwick {

// Makes the function known under its name, which is that of its corpus. Each file that ends in
// Fuzz.cpp has one such object.
struct FuzzTarget {
  using Check = void (*)(std::string_view bytes);

  FuzzTarget(const char* called, Check function);

  std::string name;
  Check check;
};

// The targets that are linked into this program.
std::vector<FuzzTarget>& FuzzTargets();

// What must hold, in words.
inline void Expect(bool holds, const char* what) {
  if (holds) return;
  std::fprintf(stderr, "fuzz: this does not hold: %s\n", what);
  std::abort();
}

// The parts of an input, which a NUL byte separates.
inline std::vector<std::string_view> Parts(std::string_view input) {
  std::vector<std::string_view> parts;
  for (;;) {
    const std::size_t end = input.find('\0');
    parts.push_back(input.substr(0, end));
    if (end == std::string_view::npos) return parts;
    input.remove_prefix(end + 1);
  }
}

}  // namespace brenwick

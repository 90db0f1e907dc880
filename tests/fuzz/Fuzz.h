// What the fuzz targets share. A target is one function that takes any bytes at all; a finding ends
// the process.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>
#include <vector>

#include "base/Failure.h"
#include "support/Fakes.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace brenwick {

inline std::string_view BytesOf(const std::uint8_t* data, std::size_t size) {
  return size == 0 ? std::string_view()
                   : std::string_view(reinterpret_cast<const char*>(data), size);
}

// What must hold, in words.
inline void Expect(bool holds, const char* what) {
  if (holds) return;
  std::fprintf(stderr, "fuzz: this does not hold: %s\n", what);
  std::abort();
}

// True: the action came to its end. False: it ended the program. Any exception is a finding.
template <typename Action>
bool ComesToItsEnd(Action action) {
  try {
    action();
  } catch (const ProgramEnd&) {
    return false;
  }
  return true;
}

// The user was shown one error report and nothing else.
inline bool ShowsErrorReport(const FakeScreen& screen) {
  return screen.boxes.size() == 1 && screen.boxes[0].text.starts_with("Error (") &&
         screen.boxes[0].title.starts_with("Unexpected Error!");
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

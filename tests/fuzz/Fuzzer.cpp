// Hands libFuzzer's inputs to the one target that is linked into its program.
#include <cstddef>
#include <cstdint>

#include "fuzz/Fuzz.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const brenwick::FuzzTarget& target = brenwick::FuzzTargets().front();
  target.check(size == 0 ? "" : std::string_view(reinterpret_cast<const char*>(data), size));
  return 0;
}

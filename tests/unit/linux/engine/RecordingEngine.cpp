#include "unit/linux/engine/RecordingEngine.h"

#include <algorithm>

namespace brenwick {

void ExpectWhole(const SaidText& said, Reference& reference) {
  Samples expected;
  for (const Contribution& part : said.by) {
    const Samples whole = reference.Said(part.process, said.text);
    const std::size_t begin = std::min(expected.size(), whole.size());
    const bool last = &part == &said.by.back();
    const std::size_t end = last ? whole.size() : std::min(begin + part.samples, whole.size());
    expected.insert(expected.end(), whole.begin() + static_cast<std::ptrdiff_t>(begin),
                    whole.begin() + static_cast<std::ptrdiff_t>(end));
  }
  EXPECT_GT(expected.size(), 2'000U) << said.text;
  EXPECT_TRUE(said.samples == expected)
      << said.text << " by " << said.by.size() << " processes: " << said.samples.size() << ", not "
      << expected.size();
}

}  // namespace brenwick

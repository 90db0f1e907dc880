#include "espeak/TimeStretch.h"

#include <sonic.h>

#include <new>

namespace brenwick {

void TimeStretch::Destroy::operator()(sonicStreamStruct* stream) const {
  sonicDestroyStream(stream);
}

TimeStretch::TimeStretch(int sample_rate, double speed)
    : stream_(sonicCreateStream(sample_rate, 1)) {
  if (!stream_) throw std::bad_alloc();
  sonicSetSpeed(stream_.get(), static_cast<float>(speed));
}

std::vector<std::int16_t> TimeStretch::Stretched(std::span<const std::int16_t> samples) {
  std::vector<std::int16_t> copy(samples.begin(), samples.end());
  sonicWriteShortToStream(stream_.get(), copy.data(), static_cast<int>(copy.size()));
  return Available();
}

std::vector<std::int16_t> TimeStretch::Rest() {
  sonicFlushStream(stream_.get());
  return Available();
}

std::vector<std::int16_t> TimeStretch::Available() {
  std::vector<std::int16_t> samples(static_cast<std::size_t>(sonicSamplesAvailable(stream_.get())));
  const int read = samples.empty() ? 0
                                   : sonicReadShortFromStream(stream_.get(), samples.data(),
                                                              static_cast<int>(samples.size()));
  samples.resize(static_cast<std::size_t>(read));
  return samples;
}

}  // namespace brenwick

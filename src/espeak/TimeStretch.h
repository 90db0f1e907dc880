// Speech slower than the engine can speak: the same pitch, more time.
#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <vector>

struct sonicStreamStruct;

namespace brenwick {

class TimeStretch {
 public:
  // A speed of 0.5 makes the speech twice as long.
  TimeStretch(int sample_rate, double speed);

  // The stretched form of what was given so far, except for the last few milliseconds.
  std::vector<std::int16_t> Stretched(std::span<const std::int16_t> samples);
  // The rest of it, at the end of the speech.
  std::vector<std::int16_t> Rest();

 private:
  struct Destroy {
    void operator()(sonicStreamStruct* stream) const;
  };

  std::vector<std::int16_t> Available();

  std::unique_ptr<sonicStreamStruct, Destroy> stream_;
};

}  // namespace brenwick

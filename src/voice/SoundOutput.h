// Takes the voice's samples: the sound device or a file.
#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <span>

namespace brenwick {

// Samples are 16 bit, one channel, at the rate that the output was made for. Only the thread that
// speaks calls an output, except for MayComeBack, which any thread may call. No call throws, and
// none waits for sound, so that a purge never waits either.
class SoundOutput {
 public:
  SoundOutput() = default;
  SoundOutput(const SoundOutput&) = delete;
  SoundOutput& operator=(const SoundOutput&) = delete;
  virtual ~SoundOutput() = default;

  // Called before each sentence; false when the output takes no samples now. The sentence is
  // then left out, and the next one asks again.
  virtual bool Ready() = 0;

  // Whether an output that is not ready may be ready later, as a device may that is plugged in.
  virtual bool MayComeBack() const { return true; }

  // Takes as many of the first samples as there is room for now and returns their number. The
  // caller offers the others again a little later. An output that has failed takes them all.
  virtual std::size_t Write(std::span<const std::int16_t> samples) = 0;

  // Forgets every sample that is taken but not heard yet.
  virtual void Cut() = 0;

  // Called when nothing follows for now: lets what was taken be heard to its end, and returns how
  // long that is from now.
  virtual std::chrono::milliseconds Finish() = 0;

  // Called when nothing was said for a while: gives back what others might want to use. The next
  // Ready() takes it again.
  virtual void Rest() {}
};

}  // namespace brenwick

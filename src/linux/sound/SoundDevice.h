// The default sound device, through ALSA. ALSA's "default" leads to whatever the machine plays
// with: PipeWire, PulseAudio, a card, or what the user wrote into ~/.asoundrc.
#pragma once

#include <memory>

#include "voice/SoundOutput.h"

struct _snd_pcm;

namespace brenwick {

class SoundDevice final : public SoundOutput {
 public:
  explicit SoundDevice(int sample_rate);
  ~SoundDevice() override;

  // Opens the device where it is closed, so that one that was plugged in later is found by the
  // next sentence, and one that went away in the middle of a sentence is asked for again.
  bool Ready() override;
  std::size_t Write(std::span<const std::int16_t> samples) override;
  void Cut() override;
  std::chrono::milliseconds Finish() override;
  void Rest() override;

 private:
  struct Close {
    void operator()(_snd_pcm* device) const;
  };

  const unsigned sample_rate_;
  std::unique_ptr<_snd_pcm, Close> device_;
};

}  // namespace brenwick

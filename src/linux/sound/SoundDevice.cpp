#include "linux/sound/SoundDevice.h"

#include <alsa/asoundlib.h>

#include <algorithm>
#include <cerrno>

namespace brenwick {
namespace {

// Long enough that a busy machine does not break the sound. A purge does not wait for it.
constexpr unsigned kBufferMicroseconds = 200'000;

// ALSA explains each failed step of opening a device on the error output. That there is no sound
// is said once, by the program, in its own words.
void SayNothing(const char*, int, const char*, int, const char*, ...) {}

}  // namespace

void SoundDevice::Close::operator()(_snd_pcm* device) const { snd_pcm_close(device); }

SoundDevice::SoundDevice(int sample_rate) : sample_rate_(static_cast<unsigned>(sample_rate)) {
  snd_lib_error_set_handler(SayNothing);
}

SoundDevice::~SoundDevice() {
  if (device_) snd_pcm_drop(device_.get());
  device_.reset();
  snd_config_update_free_global();
}

bool SoundDevice::Ready() {
  if (device_) return true;
  snd_pcm_t* opened = nullptr;
  if (snd_pcm_open(&opened, "default", SND_PCM_STREAM_PLAYBACK, SND_PCM_NONBLOCK) < 0) return false;
  device_.reset(opened);
  constexpr unsigned kChannels = 1;
  constexpr int kResample = 1;
  if (snd_pcm_set_params(opened, SND_PCM_FORMAT_S16, SND_PCM_ACCESS_RW_INTERLEAVED, kChannels,
                         sample_rate_, kResample, kBufferMicroseconds) < 0) {
    device_.reset();
  }
  return device_ != nullptr;
}

std::size_t SoundDevice::Write(std::span<const std::int16_t> samples) {
  if (!device_) return samples.size();
  snd_pcm_sframes_t written = snd_pcm_writei(device_.get(), samples.data(), samples.size());
  if (written == -EAGAIN) return 0;
  if (written < 0) {
    // Between two sentences the device runs dry; it has to be made ready for the second one.
    constexpr int kSilently = 1;
    if (snd_pcm_recover(device_.get(), static_cast<int>(written), kSilently) == 0) {
      written = snd_pcm_writei(device_.get(), samples.data(), samples.size());
    }
    if (written == -EAGAIN) return 0;
  }
  if (written < 0) {
    device_.reset();
    return samples.size();
  }
  return static_cast<std::size_t>(written);
}

void SoundDevice::Cut() {
  if (!device_) return;
  const bool dropped = snd_pcm_drop(device_.get()) == 0 && snd_pcm_prepare(device_.get()) == 0;
  if (!dropped) device_.reset();
}

std::chrono::milliseconds SoundDevice::Finish() {
  if (!device_) return std::chrono::milliseconds(0);
  // A sentence shorter than the buffer has not started the device.
  if (snd_pcm_state(device_.get()) == SND_PCM_STATE_PREPARED) snd_pcm_start(device_.get());
  snd_pcm_sframes_t frames = 0;
  if (snd_pcm_delay(device_.get(), &frames) < 0) frames = 0;
  const auto rate = static_cast<snd_pcm_sframes_t>(sample_rate_);
  return std::chrono::milliseconds(std::max<snd_pcm_sframes_t>(frames, 0) * 1000 / rate);
}

// A device that is kept open keeps the sound server awake, on a laptop's battery.
void SoundDevice::Rest() { device_.reset(); }

}  // namespace brenwick

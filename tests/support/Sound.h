// Measures what can be heard in a WAV file.
#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <vector>

namespace brenwick {

struct Sound {
  int sample_rate = 0;
  std::vector<std::int16_t> samples;
};

// Reads a WAV file of one channel with 16 bits, without the first so many samples; raises
// std::runtime_error, which names what is wrong, where it is no such file or where its header does
// not fit its length.
Sound ReadWav(const std::filesystem::path& path, std::size_t skipped_samples = 0);

double Seconds(const Sound& sound);

// How loud the sound is on average: 0 for silence, a few thousand for speech.
double Rms(const Sound& sound);

// The median of the voice's pitch over those parts of the sound that have one; 0 without any.
double FundamentalHz(const Sound& sound);

// The sound without the silence at its start and its end.
Sound Trimmed(const Sound& sound);

// The part of the sound between two moments, in seconds.
Sound Part(const Sound& sound, double from, double to);

}  // namespace brenwick

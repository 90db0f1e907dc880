#include "support/Sound.h"

#include <algorithm>
#include <cmath>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>

namespace brenwick {
namespace {

constexpr std::size_t kHeaderBytes = 44;

std::uint32_t Number(const std::string& bytes, std::size_t at, int count) {
  std::uint32_t value = 0;
  for (int i = count - 1; i >= 0; --i) {
    value = value << 8 | static_cast<unsigned char>(bytes[at + static_cast<std::size_t>(i)]);
  }
  return value;
}

void Require(bool condition, const char* what) {
  if (!condition) throw std::runtime_error(std::string("not a sound WAV file: ") + what);
}

double Energy(const std::vector<std::int16_t>& samples, std::size_t from, std::size_t count) {
  double energy = 0;
  for (std::size_t i = from; i < from + count; ++i) {
    energy += static_cast<double>(samples[i]) * samples[i];
  }
  return energy;
}

// How well the window resembles itself `lag` samples later: 1 when it repeats exactly.
double Resemblance(const std::vector<std::int16_t>& samples, std::size_t from, std::size_t count,
                   std::size_t lag) {
  double product = 0;
  for (std::size_t i = from; i < from + count; ++i) {
    product += static_cast<double>(samples[i]) * samples[i + lag];
  }
  const double energies = Energy(samples, from, count) * Energy(samples, from + lag, count);
  return energies > 0 ? product / std::sqrt(energies) : 0;
}

// The pitch of one window; 0 where it has none. A longer period must resemble clearly better, or
// twice the true period would win now and then.
double WindowHz(const Sound& sound, std::size_t from, std::size_t count) {
  constexpr double kVoiced = 0.6, kClearlyBetter = 0.02;
  const auto shortest = static_cast<std::size_t>(sound.sample_rate / 350);
  const auto longest = static_cast<std::size_t>(sound.sample_rate / 70);
  double best = kVoiced;
  std::size_t period = 0;
  for (std::size_t lag = shortest; lag <= longest; ++lag) {
    const double resemblance = Resemblance(sound.samples, from, count, lag);
    if (resemblance <= best + kClearlyBetter) continue;
    best = resemblance;
    period = lag;
  }
  return period == 0 ? 0 : static_cast<double>(sound.sample_rate) / static_cast<double>(period);
}

}  // namespace

Sound ReadWav(const std::filesystem::path& path, std::size_t skipped_samples) {
  std::ifstream file(path, std::ios::binary);
  std::string header(kHeaderBytes, 0);
  Require(file.read(header.data(), kHeaderBytes).good(), "too short");
  Require(header.compare(0, 4, "RIFF") == 0 && header.compare(8, 8, "WAVEfmt ") == 0, "no header");
  Require(Number(header, 20, 2) == 1, "not plain samples");
  Require(Number(header, 22, 2) == 1 && Number(header, 34, 2) == 16, "not one channel, 16 bits");
  Require(header.compare(36, 4, "data") == 0, "no samples");
  const std::size_t file_bytes = std::filesystem::file_size(path);
  Require(Number(header, 4, 4) == file_bytes - 8, "the file's length is not in its header");
  Require(Number(header, 40, 4) == file_bytes - kHeaderBytes, "the data's length is wrong");
  Sound sound;
  sound.sample_rate = static_cast<int>(Number(header, 24, 4));
  Require(Number(header, 28, 4) == static_cast<std::uint32_t>(2 * sound.sample_rate), "byte rate");
  const std::size_t samples = (file_bytes - kHeaderBytes) / 2;
  sound.samples.resize(samples - std::min(samples, skipped_samples));
  const auto wanted = static_cast<std::streamsize>(2 * sound.samples.size());
  file.seekg(-wanted, std::ios::end);
  // The samples are stored with the low byte first, as this machine keeps them.
  file.read(reinterpret_cast<char*>(sound.samples.data()), wanted);
  Require(file.good(), "the samples cannot be read");
  return sound;
}

double Seconds(const Sound& sound) {
  return static_cast<double>(sound.samples.size()) / sound.sample_rate;
}

double Rms(const Sound& sound) {
  if (sound.samples.empty()) return 0;
  const double energy = Energy(sound.samples, 0, sound.samples.size());
  return std::sqrt(energy / static_cast<double>(sound.samples.size()));
}

double FundamentalHz(const Sound& sound) {
  constexpr std::size_t kWindow = 1024;
  constexpr double kLoudEnough = 1000;
  std::vector<double> pitches;
  for (std::size_t from = 0; from + 2 * kWindow < sound.samples.size(); from += kWindow) {
    if (Energy(sound.samples, from, kWindow) < kWindow * kLoudEnough * kLoudEnough) continue;
    if (const double pitch = WindowHz(sound, from, kWindow); pitch > 0) pitches.push_back(pitch);
  }
  if (pitches.empty()) return 0;
  std::nth_element(pitches.begin(), pitches.begin() + std::ssize(pitches) / 2, pitches.end());
  return pitches[pitches.size() / 2];
}

Sound Trimmed(const Sound& sound) {
  const auto audible = [](std::int16_t sample) { return std::abs(int{sample}) > 100; };
  const auto& samples = sound.samples;
  const auto first = std::find_if(samples.begin(), samples.end(), audible);
  const auto last = std::find_if(samples.rbegin(), std::make_reverse_iterator(first), audible);
  return {sound.sample_rate, {first, last.base()}};
}

Sound Part(const Sound& sound, double from, double to) {
  const auto at = [&](double seconds) {
    const auto index = static_cast<std::ptrdiff_t>(std::max(seconds, 0.0) * sound.sample_rate);
    return sound.samples.begin() + std::min(index, std::ssize(sound.samples));
  };
  return {sound.sample_rate, {at(from), at(std::max(from, to))}};
}

}  // namespace brenwick

// A sound file in WAV format that is written while it is spoken.
#pragma once

#include <chrono>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <memory>

#include "voice/SoundOutput.h"

namespace brenwick {

class WavFile final : public SoundOutput {
 public:
  // How fast the file takes samples: as fast as they are made, or no faster than they would be
  // heard, so that a purge cuts the file where it would cut the sound.
  enum class Pace { kAtOnce, kAsHeard };

  // Replaces the file. Raises kPathFileAccess with the path and the reason where it cannot.
  WavFile(const std::filesystem::path& path, int sample_rate, Pace pace);
  ~WavFile() override;

  // False from the first write that fails, such as on a full disk, and at 4 GB, where the
  // format's own numbers end.
  bool Ready() override { return !failed_; }
  bool MayComeBack() const override { return false; }
  std::size_t Write(std::span<const std::int16_t> samples) override;
  void Cut() override;
  std::chrono::milliseconds Finish() override;

 private:
  // For writing bytes, in the place of what the file held; nothing where that fails, with errno
  // set.
  static std::FILE* Open(const std::filesystem::path& path);

  struct Close {
    void operator()(std::FILE* file) const { std::fclose(file); }
  };
  using Time = std::chrono::steady_clock::time_point;

  std::size_t Room(std::size_t wanted);
  Time HeardUntil() const;
  void WriteHeader();

  const int sample_rate_;
  const Pace pace_;
  std::unique_ptr<std::FILE, Close> file_;
  std::uint32_t data_bytes_ = 0;
  bool failed_ = false;
  // What is being said now began at this moment and has had so many samples since.
  Time began_;
  std::uint64_t samples_since_ = 0;
};

}  // namespace brenwick

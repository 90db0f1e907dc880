#include "voice/WavFile.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>
#include <limits>
#include <string>

#include "base/Failure.h"

namespace brenwick {
namespace {

constexpr std::uint32_t kHeaderBytes = 44;
constexpr std::uint32_t kMostDataBytes = std::numeric_limits<std::uint32_t>::max() - kHeaderBytes;
constexpr std::uint32_t kSampleBytes = sizeof(std::int16_t);

// At Pace::kAsHeard this much is in the file before its moment, like in a device's buffer.
// The voice comes back every 20 ms; the file must not run dry in between.
constexpr std::chrono::milliseconds kLead{60};

class Header {
 public:
  Header& Text(const char (&four)[5]) {
    std::copy_n(four, 4, bytes_.begin() + size_);
    size_ += 4;
    return *this;
  }
  Header& Number32(std::uint32_t value) { return Number(value, 4); }
  Header& Number16(std::uint32_t value) { return Number(value, 2); }
  const std::array<char, kHeaderBytes>& Bytes() const { return bytes_; }

 private:
  Header& Number(std::uint32_t value, int bytes) {
    for (int i = 0; i < bytes; ++i, ++size_) {
      bytes_[static_cast<std::size_t>(size_)] = static_cast<char>((value >> (8 * i)) & 0xFF);
    }
    return *this;
  }

  std::array<char, kHeaderBytes> bytes_{};
  int size_ = 0;
};

Header HeaderFor(std::uint32_t sample_rate, std::uint32_t data_bytes) {
  Header header;
  header.Text("RIFF").Number32(data_bytes + kHeaderBytes - 8).Text("WAVE");
  header.Text("fmt ").Number32(16).Number16(1).Number16(1).Number32(sample_rate);
  header.Number32(sample_rate * kSampleBytes).Number16(kSampleBytes).Number16(8 * kSampleBytes);
  header.Text("data").Number32(data_bytes);
  return header;
}

}  // namespace

WavFile::WavFile(const std::filesystem::path& path, int sample_rate, Pace pace)
    : sample_rate_(sample_rate), pace_(pace), file_(Open(path)) {
  if (file_) WriteHeader();
  if (file_ && !failed_) return;
  throw Failure(kPathFileAccess,
                "The sound file " + path.string() +
                    " cannot be written: " + std::generic_category().message(errno),
                "Brenwick");
}

WavFile::~WavFile() { WriteHeader(); }

std::size_t WavFile::Write(std::span<const std::int16_t> samples) {
  const std::size_t count = failed_ ? samples.size() : Room(samples.size());
  if (failed_ || count == 0) return count;
  if (count * kSampleBytes > kMostDataBytes - data_bytes_ ||
      std::fwrite(samples.data(), kSampleBytes, count, file_.get()) != count) {
    failed_ = true;
    return samples.size();
  }
  data_bytes_ += static_cast<std::uint32_t>(count * kSampleBytes);
  samples_since_ += count;
  return count;
}

// How many samples may be written now so that the file is never ahead of the sound.
std::size_t WavFile::Room(std::size_t wanted) {
  if (pace_ == Pace::kAtOnce) return wanted;
  const Time now = std::chrono::steady_clock::now();
  if (HeardUntil() <= now) {
    began_ = now;
    samples_since_ = 0;
  }
  const std::chrono::duration<double> due = now + kLead - began_;
  const auto samples_due = static_cast<std::uint64_t>(due.count() * sample_rate_);
  return std::min<std::size_t>(wanted, samples_due - std::min(samples_due, samples_since_));
}

WavFile::Time WavFile::HeardUntil() const {
  return began_ + std::chrono::microseconds(samples_since_ * 1'000'000 /
                                            static_cast<std::uint64_t>(sample_rate_));
}

// What is in the file counts as heard, at either pace.
void WavFile::Cut() {
  began_ = Time();
  samples_since_ = 0;
  WriteHeader();
}

std::chrono::milliseconds WavFile::Finish() {
  WriteHeader();
  if (pace_ == Pace::kAtOnce) return std::chrono::milliseconds(0);
  const auto left = HeardUntil() - std::chrono::steady_clock::now();
  return std::max(std::chrono::ceil<std::chrono::milliseconds>(left), std::chrono::milliseconds(0));
}

void WavFile::WriteHeader() {
  const Header header = HeaderFor(static_cast<std::uint32_t>(sample_rate_), data_bytes_);
  const bool written =
      std::fseek(file_.get(), 0, SEEK_SET) == 0 &&
      std::fwrite(header.Bytes().data(), header.Bytes().size(), 1, file_.get()) == 1 &&
      std::fseek(file_.get(), 0, SEEK_END) == 0 && std::fflush(file_.get()) == 0;
  if (!written) failed_ = true;
}

}  // namespace brenwick

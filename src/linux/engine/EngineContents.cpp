#include "linux/engine/EngineContents.h"

#include <charconv>
#include <cstring>

#include "base/Lines.h"
#include "base/Text.h"

namespace brenwick {
namespace {

constexpr const char* kFemale = "f";
constexpr const char* kMale = "m";

std::vector<std::string> Fields(std::string_view line, char between) {
  std::vector<std::string> fields;
  for (;;) {
    const std::size_t end = line.find(between);
    fields.emplace_back(line.substr(0, end));
    if (end == std::string_view::npos) return fields;
    line.remove_prefix(end + 1);
  }
}

std::optional<int> NumberIn(std::string_view digits) {
  int number = 0;
  const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), number);
  if (error != std::errc() || end != digits.data() + digits.size()) return std::nullopt;
  return number;
}

std::optional<EngineVoice> VoiceIn(std::string_view line) {
  constexpr std::size_t kFields = 4;
  if (!IsValidUtf8(line) || line.find('\r') != line.npos) return std::nullopt;
  const std::vector<std::string> fields = Fields(line, '\t');
  if (fields.size() != kFields || (fields[3] != kFemale && fields[3] != kMale)) return std::nullopt;
  if (fields[0].empty() || fields[2].empty()) return std::nullopt;
  return EngineVoice{fields[2], fields[0], fields[1], fields[3] == kFemale};
}

}  // namespace

std::string VoicesContent(const std::vector<EngineVoice>& voices) {
  std::string lines;
  for (const EngineVoice& voice : voices) {
    lines += voice.identifier + '\t' + voice.language + '\t' + voice.description + '\t' +
             (voice.female ? kFemale : kMale) + '\n';
  }
  return lines;
}

std::vector<EngineVoice> VoicesIn(std::string_view content) {
  std::vector<EngineVoice> voices;
  for (const std::string_view line : Lines(content)) {
    if (auto voice = VoiceIn(line)) voices.push_back(std::move(*voice));
  }
  return voices;
}

std::string UseContent(const EngineUse& use) {
  return use.voice + '\n' + std::to_string(use.rate) + '\n' + std::to_string(use.volume);
}

std::optional<EngineUse> UseIn(std::string_view content) {
  constexpr std::size_t kFields = 3;
  const std::vector<std::string> fields = Fields(content, '\n');
  if (fields.size() != kFields) return std::nullopt;
  const std::optional<int> rate = NumberIn(fields[1]);
  const std::optional<int> volume = NumberIn(fields[2]);
  if (!rate || !volume) return std::nullopt;
  return EngineUse{fields[0], *rate, *volume};
}

int SampleRateIn(std::string_view content) {
  constexpr int kHighestRate = 192'000;
  const int rate = NumberIn(content).value_or(0);
  return rate > 0 && rate <= kHighestRate ? rate : 0;
}

std::string_view SamplesContent(std::span<const std::int16_t> samples) {
  const auto bytes = std::as_bytes(samples);
  return {static_cast<const char*>(static_cast<const void*>(bytes.data())), bytes.size()};
}

std::vector<std::int16_t> SamplesIn(std::string_view content) {
  std::vector<std::int16_t> samples(content.size() / sizeof(std::int16_t));
  if (samples.empty()) return samples;
  std::memcpy(samples.data(), content.data(), samples.size() * sizeof(std::int16_t));
  return samples;
}

}  // namespace brenwick

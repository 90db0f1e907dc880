// What the messages between the program and its engine's process hold.
//
// The process may be in the hands of a hostile text, so whatever it sends is read with care; none
// of these raises anything.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "voice/EngineVoices.h"

namespace brenwick {

// The answer to EngineWord::Voices, a line each. A line that is not written like that, or not in
// UTF-8, is left out.
std::string VoicesContent(const std::vector<EngineVoice>& voices);
std::vector<EngineVoice> VoicesIn(std::string_view content);

// How the texts to come are to be spoken, of EngineWord::Use: an identifier of a voice, −10..10,
// 0..100.
struct EngineUse {
  std::string voice;
  int rate = 0;
  int volume = 0;
  bool operator==(const EngineUse&) const = default;
};
std::string UseContent(const EngineUse& use);
// Nothing where the content is not written like that.
std::optional<EngineUse> UseIn(std::string_view content);

// Samples a second, of EngineWord::Ready; 0 where that is no rate of a sound device.
int SampleRateIn(std::string_view content);

// Those of EngineWord::Samples, without a half one at the end.
std::string_view SamplesContent(std::span<const std::int16_t> samples);
std::vector<std::int16_t> SamplesIn(std::string_view content);

}  // namespace brenwick

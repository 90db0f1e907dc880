#include "support/SpeakingToFile.h"

#include <chrono>
#include <stdexcept>

namespace brenwick {

void SpeakingToFile::AwaitSilence() {
  constexpr std::chrono::seconds kPatience{60};
  if (!WaitUntilSilent(kPatience)) throw std::runtime_error("the voice does not fall silent");
}

std::size_t SpeakingToFile::SamplesSoFar() {
  constexpr std::size_t kHeaderBytes = 44;
  AwaitSilence();
  return (std::filesystem::file_size(File()) - kHeaderBytes) / 2;
}

Sound SpeakingToFile::RecordedBehind(std::size_t samples) {
  AwaitSilence();
  return ReadWav(File(), samples);
}

}  // namespace brenwick

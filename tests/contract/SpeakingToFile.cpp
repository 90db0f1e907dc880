#include "contract/SpeakingToFile.h"

#include <chrono>
#include <cstdlib>
#include <stdexcept>
#include <system_error>

namespace brenwick {

PrivateFolder::PrivateFolder() {
  std::string pattern = (std::filesystem::temp_directory_path() / "brenwick-XXXXXX").string();
  if (!mkdtemp(pattern.data())) throw std::runtime_error("no folder for the test");
  path_ = pattern;
}

PrivateFolder::~PrivateFolder() {
  std::error_code ignored;
  std::filesystem::remove_all(path_, ignored);
}

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

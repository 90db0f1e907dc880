#include "voice/WavFile.h"

namespace brenwick {

// No process that is started while it speaks is to keep the file open.
std::FILE* WavFile::Open(const std::filesystem::path& path) {
  return std::fopen(path.c_str(), "wbe");
}

}  // namespace brenwick

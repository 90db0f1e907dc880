#include "voice/WavFile.h"

namespace brenwick {

// No process that is started while it speaks is to keep the file open.
std::FILE* WavFile::Open(const std::filesystem::path& path) {
  return _wfopen(path.c_str(), L"wbN");
}

}  // namespace brenwick

// Runs a fuzz target once over each file in the folders named as arguments.
#include <algorithm>
#include <cstdio>
#include <exception>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "fuzz/Fuzz.h"

namespace {

namespace fs = std::filesystem;

void Replay(const fs::path& path) {
  std::ifstream file(path, std::ios::binary);
  const std::vector<char> bytes{std::istreambuf_iterator<char>(file), {}};
  // Told beforehand: a finding ends the process.
  std::printf("%s, %zu bytes\n", path.c_str(), bytes.size());
  std::fflush(stdout);
  LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
}

int ReplayFolders(int count, char** folders) {
  std::vector<fs::path> files;
  for (int i = 0; i < count; ++i) {
    for (const fs::directory_entry& entry : fs::directory_iterator(folders[i])) {
      if (entry.is_regular_file()) files.push_back(entry.path());
    }
  }
  std::sort(files.begin(), files.end());
  for (const fs::path& file : files) Replay(file);
  std::printf("%zu inputs replayed\n", files.size());
  return files.empty() ? 1 : 0;
}

}  // namespace

int main(int count, char** arguments) {
  try {
    return ReplayFolders(count - 1, arguments + 1);
  } catch (const std::exception& failure) {
    std::fprintf(stderr, "fuzz: an exception came out: %s\n", failure.what());
    return 1;
  }
}

// Runs a fuzz target once over each file of a folder: fuzz-replay TARGET FOLDER.
#include <algorithm>
#include <cstdio>
#include <exception>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "fuzz/Fuzz.h"

namespace brenwick {
namespace {

namespace fs = std::filesystem;

void Replay(const FuzzTarget& target, const fs::path& path) {
  std::ifstream file(path, std::ios::binary);
  const std::string bytes{std::istreambuf_iterator<char>(file), {}};
  // Told beforehand: a finding ends the process.
  std::printf("%s, %zu bytes\n", path.c_str(), bytes.size());
  std::fflush(stdout);
  target.check(bytes);
}

int ReplayFolder(const std::string& name, const fs::path& folder) {
  const auto target = std::find_if(FuzzTargets().begin(), FuzzTargets().end(),
                                   [&name](const FuzzTarget& each) { return each.name == name; });
  if (target == FuzzTargets().end()) {
    std::fprintf(stderr, "fuzz: there is no target \"%s\"\n", name.c_str());
    return 2;
  }
  std::vector<fs::path> files;
  for (const fs::directory_entry& entry : fs::directory_iterator(folder)) {
    if (entry.is_regular_file()) files.push_back(entry.path());
  }
  std::sort(files.begin(), files.end());
  for (const fs::path& file : files) Replay(*target, file);
  std::printf("%zu inputs replayed\n", files.size());
  return files.empty() ? 1 : 0;
}

}  // namespace
}  // namespace brenwick

int main(int count, char** arguments) {
  if (count != 3) {
    std::fprintf(stderr, "usage: fuzz-replay TARGET FOLDER\n");
    return 2;
  }
  try {
    return brenwick::ReplayFolder(arguments[1], arguments[2]);
  } catch (const std::exception& failure) {
    std::fprintf(stderr, "fuzz: an exception came out: %s\n", failure.what());
    return 1;
  }
}

// A folder of the process that is gone with it, in memory where that can be had.
#pragma once

#include <stdlib.h>

#include <filesystem>
#include <string>

#include "fuzz/Fuzz.h"

namespace brenwick {

class TemporaryFolder {
 public:
  TemporaryFolder() {
    namespace fs = std::filesystem;
    const bool memory = fs::is_directory("/dev/shm");
    path_ = (memory ? fs::path("/dev/shm") : fs::temp_directory_path()) / "brenwick-fuzzXXXXXX";
    Expect(::mkdtemp(path_.data()) != nullptr, "there is a temporary folder");
  }
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;
  ~TemporaryFolder() { std::filesystem::remove_all(path_); }

  const std::string& Path() const { return path_; }
  void Empty() const {
    for (const auto& entry : std::filesystem::directory_iterator(path_)) {
      std::filesystem::remove(entry.path());
    }
  }

 private:
  std::string path_;
};

}  // namespace brenwick

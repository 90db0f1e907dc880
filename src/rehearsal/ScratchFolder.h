// A folder of a rehearsal's own that goes away at its end.
#pragma once

#include <filesystem>
#include <string>

#include "rehearsal/Transcript.h"

namespace brenwick {

class ScratchFolder {
 public:
  // Raises std::runtime_error, in words for the user, where no folder can be made.
  ScratchFolder();
  ScratchFolder(const ScratchFolder&) = delete;
  ScratchFolder& operator=(const ScratchFolder&) = delete;
  ~ScratchFolder();

  const std::filesystem::path& Path() const { return path_; }

 private:
  std::filesystem::path path_;
};

// Writes a fixed name in the place of a folder whose name is another at every run, so that the
// transcript is not.
class SameAtEveryRun : public Transcript {
 public:
  static constexpr const char* kFixedName = "/rehearsal";

  SameAtEveryRun(Transcript& behind, std::string folder)
      : behind_(behind), folder_(std::move(folder)) {}

  void Watch(const frmMain& form) override { behind_.Watch(form); }
  void BeginStep(int number, const nlohmann::json& step) override {
    behind_.BeginStep(number, step);
  }
  void Write(const Effect& effect) override;

 private:
  void Rename(Effect& value) const;

  Transcript& behind_;
  std::string folder_;
};

}  // namespace brenwick

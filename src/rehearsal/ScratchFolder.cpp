#include "rehearsal/ScratchFolder.h"

#include <cerrno>
#include <cstdlib>
#include <stdexcept>
#include <system_error>

namespace brenwick {

ScratchFolder::ScratchFolder() {
  const char* chosen = std::getenv("TMPDIR");
  const std::string parent = chosen != nullptr && *chosen != '\0' ? chosen : "/tmp";
  std::string pattern = (std::filesystem::path(parent) / "brenwick-rehearsal-XXXXXX").string();
  if (mkdtemp(pattern.data()) == nullptr) {
    throw std::runtime_error("cannot make a temporary folder in " + parent + ": " +
                             std::generic_category().message(errno));
  }
  path_ = pattern;
}

ScratchFolder::~ScratchFolder() {
  std::error_code ignored;
  std::filesystem::remove_all(path_, ignored);
}

void SameAtEveryRun::Write(const Effect& effect) {
  Effect renamed = effect;
  Rename(renamed);
  behind_.Write(renamed);
}

void SameAtEveryRun::Rename(Effect& value) const {
  if (value.is_structured()) {
    for (Effect& part : value) Rename(part);
  } else if (value.is_string()) {
    auto& text = value.get_ref<std::string&>();
    const std::string_view name = kFixedName;
    for (std::size_t at = text.find(folder_); at != std::string::npos;
         at = text.find(folder_, at + name.size())) {
      text.replace(at, folder_.size(), name);
    }
  }
}

}  // namespace brenwick

#include "language/FindFile.h"

#include <cstddef>

#include "base/Text.h"

namespace brenwick {

std::string FindFile(Folders& folders, const std::string& path) {
  if (folders.FileExists(path)) return path;
  const std::size_t separator = path.rfind(folders.Separator());
  const std::string folder = path.substr(0, separator);
  const std::string name = LowerCase(path.substr(separator + 1));
  for (const std::string& file : folders.FileNames(folder)) {
    if (LowerCase(file) == name) return folder + folders.Separator() + file;
  }
  return {};
}

}  // namespace brenwick

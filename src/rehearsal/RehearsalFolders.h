// The folders of a rehearsal.
#pragma once

#include <algorithm>
#include <string>
#include <vector>

#include "files/SystemFolders.h"

namespace brenwick {

// Lists files by name: file systems have an order of their own, which is another on each machine
// and in each copy of a folder.
class RehearsalFolders : public SystemFolders {
 public:
  using SystemFolders::SystemFolders;

  std::vector<std::string> FileNames(const std::string& folder) override {
    std::vector<std::string> names = SystemFolders::FileNames(folder);
    std::sort(names.begin(), names.end());
    return names;
  }
};

}  // namespace brenwick

// What every Folders does, whatever file system lies behind it. Each implementation that can run on
// the test machine is one line of Implementations() in FoldersContract.cpp.
#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>

#include "platform/Folders.h"
#include "support/TemporaryFolder.h"

namespace brenwick {

struct FoldersImplementation {
  std::string name;  // the suffix of its tests' names
  // Folders whose documents folder is "Docs" below the root, which exists and is empty, and whose
  // program file is "program/brenwick" there.
  std::function<std::unique_ptr<Folders>(const std::string& root)> make;
};

class FoldersContract : public testing::TestWithParam<FoldersImplementation> {
 protected:
  // A path below the root, in the system's own way.
  std::string At(const std::string& name) const {
    return root_.Path() + folders_->Separator() + name;
  }

  TemporaryFolder root_;
  std::unique_ptr<Folders> folders_ = GetParam().make(root_.Path());
};

}  // namespace brenwick

// What every RegistryStore does, whatever keeps its values. Each implementation that can run on the
// test machine is one line of Implementations() in RegistryStoreContract.cpp.
#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>

#include "platform/RegistryStore.h"
#include "support/TemporaryFolder.h"

namespace brenwick {

struct RegistryStoreImplementation {
  std::string name;  // the suffix of its tests' names
  // A store that keeps its values in that folder; empty at first, and every further one made for
  // the same folder holds what those before it stored.
  std::function<std::unique_ptr<RegistryStore>(const std::string& folder)> make;
};

class RegistryStoreContract : public testing::TestWithParam<RegistryStoreImplementation> {
 protected:
  TemporaryFolder folder_;
  std::unique_ptr<RegistryStore> store_ = GetParam().make(folder_.Path());
  std::unique_ptr<RegistryStore> Another() { return GetParam().make(folder_.Path()); }
};

}  // namespace brenwick

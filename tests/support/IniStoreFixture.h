// A settings store of a test's own.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "files/IniStore.h"
#include "support/FailingFileCalls.h"
#include "support/TemporaryFolder.h"
#include "support/TestClock.h"

namespace brenwick {

inline constexpr const char* kKey = "Software\\Brenwick\\General";

inline RegistryValue Text(std::string text) { return {ValueKind::Text, std::move(text), 0}; }

class IniStoreFixture : public testing::Test {
 protected:
  IniStore Store(FileCalls& calls = SystemCalls()) {
    return IniStore(
        File(), clock_, [this](const std::string& told) { told_.push_back(told); }, calls);
  }
  std::string File() const { return folder_.Inside("store.ini"); }
  std::string Backup() const { return folder_.Inside("store.ini.bak"); }
  std::string Damaged() const { return folder_.Inside("store.ini.damaged-2004-01-10"); }

  // One value in the file and another in the backup.
  void WriteTwoVersions() {
    IniStore store = Store();
    ASSERT_TRUE(store.WriteValue(kKey, "Version", Text("backup")));
    ASSERT_TRUE(store.WriteValue(kKey, "Version", Text("file")));
  }

  TemporaryFolder folder_;
  TestClock clock_;
  std::vector<std::string> told_;
};

}  // namespace brenwick

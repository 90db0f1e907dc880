// The settings store of the desktop: the value that starts the program with the system also makes
// the entry from which the desktop starts programs.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "platform/RegistryStore.h"

namespace brenwick {

class AutostartStore : public RegistryStore {
 public:
  // entry: the desktop's file, such as ~/.config/autostart/brenwick.desktop; program: what it is to
  // start. The store outlives this one.
  AutostartStore(RegistryStore& store, std::string entry, std::string program)
      : store_(store), entry_(std::move(entry)), program_(std::move(program)) {}

  bool KeyExists(const std::string& key) override { return store_.KeyExists(key); }
  bool CreateKey(const std::string& key) override { return store_.CreateKey(key); }
  bool DeleteKey(const std::string& key) override { return store_.DeleteKey(key); }
  // Without the desktop's entry, or with one that is switched off, there is no such value: the user
  // may have done that with the desktop's own means.
  std::optional<RegistryValue> ReadValue(const std::string& key, const std::string& name) override;
  bool WriteValue(const std::string& key, const std::string& name,
                  const RegistryValue& value) override;
  bool DeleteValue(const std::string& key, const std::string& name) override;
  std::vector<std::string> ValueNames(const std::string& key) override {
    return store_.ValueNames(key);
  }
  std::vector<std::string> SubKeys(const std::string& key) override { return store_.SubKeys(key); }
  std::string ExpandEnvironment(const std::string& text) override {
    return store_.ExpandEnvironment(text);
  }
  void Hold() override { store_.Hold(); }
  bool Flush() override { return store_.Flush(); }

 private:
  bool EntryCounts() const;
  bool WriteEntry();

  RegistryStore& store_;
  std::string entry_;
  std::string program_;
};

}  // namespace brenwick

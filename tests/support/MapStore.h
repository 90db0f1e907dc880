// A settings store in memory.
#pragma once

#include <map>
#include <optional>
#include <string>
#include <vector>

#include "platform/RegistryStore.h"

namespace brenwick {

// One map of values a key. Nothing can be written while it is broken; with broken_flush what was
// collected cannot be stored.
class MapStore : public RegistryStore {
 public:
  bool KeyExists(const std::string& key) override { return keys.contains(key); }
  bool CreateKey(const std::string& key) override {
    keys[key];
    return true;
  }
  bool DeleteKey(const std::string& key) override { return keys.erase(key) > 0; }
  std::optional<RegistryValue> ReadValue(const std::string& key, const std::string& name) override {
    if (!keys.contains(key) || !keys[key].contains(name)) return std::nullopt;
    return keys[key][name];
  }
  bool WriteValue(const std::string& key, const std::string& name,
                  const RegistryValue& value) override {
    if (broken) return false;
    keys[key][name] = value;
    return true;
  }
  bool DeleteValue(const std::string& key, const std::string& name) override {
    return keys[key].erase(name) > 0;
  }
  std::vector<std::string> ValueNames(const std::string&) override { return {}; }
  std::vector<std::string> SubKeys(const std::string&) override { return {}; }
  std::string ExpandEnvironment(const std::string& text) override {
    return text == "%EMPTY%" ? "" : text;
  }
  std::map<std::string, std::map<std::string, RegistryValue>> keys;
  bool Flush() override { return !broken_flush; }
  bool broken = false;
  bool broken_flush = false;
};

}  // namespace brenwick

// The keys and values of a settings store, in memory.
#pragma once

#include <map>
#include <optional>
#include <string>
#include <vector>

#include "platform/RegistryStore.h"

namespace brenwick {

struct IniValue {
  std::string name;  // as first written
  RegistryValue value;
  bool operator==(const IniValue&) const = default;
};

struct IniKey {
  std::string path;  // as first written
  std::map<std::string, IniValue> values;
  bool operator==(const IniKey&) const = default;
};

// What RegistryStore says of keys and names holds here. The empty path is the root, which always
// exists. No key has an empty part, lies more than 512 keys deep, or is longer than 16 KB.
class IniData {
 public:
  bool HasKey(const std::string& key) const;
  bool CreateKey(const std::string& key);
  bool DeleteKey(const std::string& key);

  std::optional<RegistryValue> Find(const std::string& key, const std::string& name) const;
  // Makes the key where it is missing. False: there can be no such key.
  bool Write(const std::string& key, const std::string& name, const RegistryValue& value);
  bool Erase(const std::string& key, const std::string& name);

  std::vector<std::string> ValueNames(const std::string& key) const;
  std::vector<std::string> SubKeys(const std::string& key) const;

  // All keys by their lower-case paths; so are the values of a key by their lower-case names.
  const std::map<std::string, IniKey>& Keys() const { return keys_; }
  // True where no key lies below this one; the path is in lower case.
  bool IsLeaf(const std::string& folded) const;

  bool operator==(const IniData&) const = default;

 private:
  std::map<std::string, IniKey> keys_ = {{"", {}}};
};

}  // namespace brenwick

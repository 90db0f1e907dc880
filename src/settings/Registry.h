// The settings store as the rest of the program uses it.
#pragma once

#include <string>

#include "platform/Folders.h"
#include "platform/RegistryStore.h"
#include "settings/cRegistry.h"

namespace brenwick {

// The type that a value is converted to on reading.
enum class RegistryConversion : std::int16_t {
  Flag = 0,  // 0 is false; everything else, the empty text too, is true
  Text = 1,
  Integer32 = 2,  // an empty value is 0, here and below
  Currency = 3,   // fixed point, four decimals
  Integer16 = 4,
  Single = 5,
  None = 6,
};

class Registry {
 public:
  Registry(RegistryStore& store, Folders& folders) : store_(store), folders_(folders) {}

  // A fresh access to a key of the current user.
  cRegistry OpenRegistryKey(const std::string& section);

  static RegistryVariant GetRegistryValue(cRegistry& key, const std::string& name,
                                          RegistryConversion conversion, ValueKind type);
  static void SetRegistryValue(const RegistryVariant& value, cRegistry& key,
                               const std::string& name, ValueKind type);
  static void DeleteRegistryValue(cRegistry& key, const std::string& name);

  // A text as every setting but the window's place is stored.
  std::string ReadText(const std::string& section, const std::string& name);
  void WriteText(const std::string& section, const std::string& name, const std::string& text);

  RegistryStore& Store() { return store_; }

 private:
  RegistryStore& store_;
  Folders& folders_;
};

}  // namespace brenwick

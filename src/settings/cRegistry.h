// One access to the settings store: a value under a key, read, written or deleted.
#pragma once

#include <cstdint>
#include <string>
#include <variant>
#include <vector>

#include "platform/Folders.h"
#include "platform/RegistryStore.h"

namespace brenwick {

// A value on its way into the store or out of it. std::monostate is the empty result.
using RegistryVariant = std::variant<std::monostate, std::string, std::int16_t, std::int32_t, float,
                                     double, bool, std::vector<std::uint8_t>>;

// The root of all keys in use, as the signed number that messages show.
inline constexpr std::int32_t kCurrentUserRoot = -2147483647;

class cRegistry {
 public:
  // The number of every failure raised here; its source is the program file's name + ".cRegistry".
  static constexpr std::int32_t kFailure = 26001;

  cRegistry(RegistryStore& store, Folders& folders) : store_(store), folders_(folders) {}

  bool KeyExists();
  // Makes the key, and raises a failure when that succeeded too: whoever calls this counts on the
  // inverted test.
  bool CreateKey();
  void DeleteKey();
  void DeleteValue();

  // The empty text when the key or the value cannot be read. Texts as they are, with references to
  // the environment expanded where the stored kind asks for it; a number as a number; a big-endian
  // one as nothing; other kinds as bytes. ValueType tells the stored kind afterwards.
  RegistryVariant Value();
  // Written as ValueType says. A text becomes an expandable one exactly when it holds a "%" and a
  // second one at least two characters further on. A number is stored from numbers and flags;
  // everything else is passed over.
  void SetValue(const RegistryVariant& value);

  // Raises the failure of a SetValue whose value the store does not take.
  [[noreturn]] void FailToSet(const std::string& shown);

  // Registers the program for a file type, below SectionKey.
  void CreateEXEAssociation(const std::string& programFile, const std::string& icon);

  std::int32_t ClassKey = kCurrentUserRoot;
  std::string SectionKey;
  std::string ValueKey;
  ValueKind ValueType = ValueKind::Text;
  RegistryVariant Default;  // kept for its callers; reading never consults it

 private:
  [[noreturn]] void Fail(const std::string& description);
  std::string Where() const;
  void Write(const RegistryValue& value, const std::string& shown);
  void WriteText(const std::string& text);
  void WriteNumber(const RegistryVariant& value);

  RegistryStore& store_;
  Folders& folders_;
};

}  // namespace brenwick

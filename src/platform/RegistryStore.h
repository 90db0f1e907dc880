// The backing of the settings store: keys, and typed values under them.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace brenwick {

// The kinds of a stored value, numbered as the settings store numbers them. On Windows the system's
// own names of these numbers are macros, so they are not names of the program.
enum class ValueKind : std::int32_t {
  Text = 1,
  ExpandableText = 2,  // may refer to the environment: "%HOME%/x"
  Bytes = 3,
  Number = 4,
  BigEndianNumber = 5,
  TextList = 7,
};

struct RegistryValue {
  ValueKind type = ValueKind::Text;
  std::string text;         // a text or a list of texts in UTF-8, or the raw bytes of another kind
  std::int32_t number = 0;  // with ValueKind::Number
  bool operator==(const RegistryValue&) const = default;
};

// The program calls each operation on its own thread. None of them throws or lets an event run; a
// failure is in the answer. One that stores waits for the disk, and a limited time for another
// program that is storing.
//
// Keys are paths with "\" between their parts, below the current user's root. Keys and names are
// compared without regard to case and kept as first written.
class RegistryStore {
 public:
  RegistryStore() = default;
  RegistryStore(const RegistryStore&) = delete;
  RegistryStore& operator=(const RegistryStore&) = delete;
  virtual ~RegistryStore() = default;

  virtual bool KeyExists(const std::string& key) = 0;
  // Makes the key with all above it; an existing key stays as it is. False: it cannot be made.
  virtual bool CreateKey(const std::string& key) = 0;
  // Deletes a key with its values. False: there is no such key, keys lie below it, or it cannot be
  // deleted.
  virtual bool DeleteKey(const std::string& key) = 0;

  // Nothing when the key or the value does not exist or cannot be read.
  virtual std::optional<RegistryValue> ReadValue(const std::string& key,
                                                 const std::string& name) = 0;
  // Makes the key where it is missing. False: the value could not be stored for good; the store
  // then holds what it held before. True: the value is stored for good, or will be at the latest
  // when the store ends, where another program keeps the store to itself for too long.
  virtual bool WriteValue(const std::string& key, const std::string& name,
                          const RegistryValue& value) = 0;
  // False: there is no such value, or it cannot be deleted.
  virtual bool DeleteValue(const std::string& key, const std::string& name) = 0;

  // The names of the values of a key, and of the keys right below it; none where there is no key.
  virtual std::vector<std::string> ValueNames(const std::string& key) = 0;
  virtual std::vector<std::string> SubKeys(const std::string& key) = 0;

  // The text with references to the environment ("%NAME%") replaced; an unknown one stays.
  virtual std::string ExpandEnvironment(const std::string& text) = 0;

  // From Hold to Flush, changes are collected and stored together: every read sees them at once,
  // and the changing calls return true for what Flush is going to store. Holds nest; the outermost
  // Flush stores. A store that keeps each change for good at once needs neither call.
  virtual void Hold() {}
  // Stores what was collected, all or nothing. False: it could not be stored for good; the store
  // then holds what it held before the Hold. Without a Hold it does nothing and returns true.
  virtual bool Flush() { return true; }
};

// Holds a store while it lives. A failure on the way leaves what was changed before it changed, as
// without a batch; so the end of the block flushes where nobody did.
class Batch {
 public:
  explicit Batch(RegistryStore& store) : store_(&store) { store.Hold(); }
  Batch(const Batch&) = delete;
  Batch& operator=(const Batch&) = delete;
  ~Batch() { Flush(); }

  // Ends the batch. False: nothing of it could be stored.
  bool Flush() {
    RegistryStore* store = store_;
    store_ = nullptr;
    return store == nullptr || store->Flush();
  }

 private:
  RegistryStore* store_;
};

}  // namespace brenwick

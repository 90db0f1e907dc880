// The applications that have shown notifications, and which of them are read aloud.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "platform/Connections.h"
#include "platform/RegistryStore.h"

namespace brenwick {

// Names are the same whatever their case. Remembered in the store, in a key of its own.
class SeenApplications {
 public:
  static constexpr const char* kKey = "Software\\Brenwick\\Notifications";
  // Of those that are off, the ones seen last are kept; those that are on stay.
  static constexpr std::size_t kMostOff = 60;

  // The store outlives this.
  explicit SeenApplications(RegistryStore& store);

  // True when it was not known.
  bool See(const std::string& name);
  // Stores all of them at once.
  void Switch(const std::string& name, bool on);
  bool IsOn(const std::string& name) const;

  // In the order of their names.
  std::vector<SeenApplication> All() const;
  // The names of those that are on, in their order.
  std::vector<std::string> On() const;

  // A flood of names is not worth a write each, so those that are off are stored when one is
  // switched, and here.
  void Save();

 private:
  // Its place among those seen; their number where it is unknown.
  std::size_t Find(const std::string& name) const;
  void ForgetOldest();

  RegistryStore& store_;
  std::vector<SeenApplication> seen_;  // those seen last at the end
  bool changed_ = false;
};

}  // namespace brenwick

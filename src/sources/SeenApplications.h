// The applications that have shown notifications, and which of them are read aloud.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "platform/Connections.h"
#include "platform/RegistryStore.h"

namespace brenwick {

// Keeps them in the store, under a key of their own. Names are compared without regard to case.
class SeenApplications {
 public:
  static constexpr const char* kKey = "Software\\Brenwick\\Notifications";
  // Of the applications that are off, so many are kept, the ones seen last; those that are on stay.
  static constexpr std::size_t kMostOff = 60;

  // The store outlives this object.
  explicit SeenApplications(RegistryStore& store);

  // Notes that the application has shown a notification. True when it was not known before.
  bool See(const std::string& name);
  // Stores the choice, and with it all that was not stored yet. A choice that cannot be stored
  // holds until the end of the program.
  void Switch(const std::string& name, bool on);
  bool IsOn(const std::string& name) const;

  // In the order of their names.
  std::vector<SeenApplication> All() const;
  // The names of those that are on, in their order.
  std::vector<std::string> On() const;

  // Stores what was not stored yet. A flood of new names is not worth a write each, so applications
  // that are off are stored only here and when another one is switched.
  void Save();

 private:
  // The application's place in seen_; the size of seen_ where it is unknown.
  std::size_t Find(const std::string& name) const;
  void ForgetOldest();

  RegistryStore& store_;
  std::vector<SeenApplication> seen_;  // those seen last at the end
  bool changed_ = false;
};

}  // namespace brenwick

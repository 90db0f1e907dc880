// Contacts by the thousand.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "contacts/ContactList.h"

namespace brenwick {

inline std::string EmailOf(std::int64_t contact) {
  return "contact" + std::to_string(contact) + "@example.org";
}

// Contacts 1 to `count`.
inline std::vector<ContactRecord> Records(std::int64_t count) {
  std::vector<ContactRecord> records;
  records.reserve(static_cast<std::size_t>(count));
  for (std::int64_t i = 1; i <= count; ++i) {
    const std::string number = std::to_string(i);
    records.push_back(
        {EmailOf(i), "Contact " + number, "Own " + number, "F", "False", "10", "True"});
  }
  return records;
}

}  // namespace brenwick

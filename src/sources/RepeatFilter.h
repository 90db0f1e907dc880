// Finds the part of a text that has not been said yet.
#pragma once

#include <cstddef>
#include <deque>
#include <string>

namespace brenwick {

// Applications replace a notification that is still shown by the same text, or by one that has a
// further message below or above the former ones. Only the new part is worth hearing. The filter
// remembers the last texts of the contacts that it heard last.
class RepeatFilter {
 public:
  static constexpr std::size_t kMost = 32;  // contacts
  // Of each contact: several notifications of one contact may be shown at the same time.
  static constexpr std::size_t kMostTexts = 8;

  // The part of the contact's text that has not been said: all of it where the text replaces no
  // other or quite another one, and nothing where it is the same again.
  std::string NewPart(const std::string& contact, const std::string& text, bool replaces);

 private:
  struct Said {
    std::string contact;
    std::deque<std::string> texts;  // the latest at the end
  };

  std::deque<std::string>& Of(const std::string& contact);

  std::deque<Said> said_;  // the latest at the end
};

}  // namespace brenwick

// What was last said of each contact, for messages that are shown again.
#pragma once

#include <cstddef>
#include <deque>
#include <string>

namespace brenwick {

// Applications replace a notification that is still shown by the same one, or by one that has a
// further message under the former ones, or above them. Only what is new is worth hearing.
class RepeatFilter {
 public:
  static constexpr std::size_t kMost = 32;  // contacts
  // Of each, for several notifications of one contact may be shown at the same time.
  static constexpr std::size_t kMostTexts = 8;

  // The part of the contact's text that has not been said: all of it where it takes the place of
  // no other, or of quite another text; nothing where it is the same again.
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

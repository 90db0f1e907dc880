// The user-interface texts, by number, in one language.
#pragma once

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "base/Observers.h"
#include "logging/Logs.h"

namespace brenwick {

// Every language has the texts below this one.
inline constexpr std::int16_t kFirstLaterText = 175;

// A text that came later, with its words in English.
struct LaterText {
  std::int16_t id;
  const char* english;
};

class TextTable {
 public:
  explicit TextTable(Logs& log) : log_(log) {}

  // The text with that id. Id 0 and the highest index give an empty text. An id beyond the table
  // (number 65535), a negative one, and any id before a table was loaded end in the error report.
  std::string LoadText(std::int16_t id) const;

  // Whether the table has a text with that id that says anything. A language that a user wrote may
  // lack those from kFirstLaterText on.
  bool Has(std::int16_t id) const;

  // The text of a language that has it, else the English one.
  std::string LoadText(const LaterText& text) const {
    return Has(text.id) ? LoadText(text.id) : text.english;
  }

  // The template with its first "%a" replaced by the argument (language/GetText.h); a failure ends
  // in the error report.
  std::string GetText(const std::string& text, const std::string& argument) const;

  // Puts another table in the place of this one: entry i is the text with id i.
  void Replace(std::vector<std::string> entries) {
    entries_ = std::move(entries);
    Replaced();
  }

  Observers<> Replaced;  // the texts are those of another language now

 private:
  Logs& log_;
  std::vector<std::string> entries_;
};

}  // namespace brenwick

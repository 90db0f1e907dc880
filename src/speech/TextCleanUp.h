// Making chat text fit for the ear.
#pragma once

#include <string>

#include "logging/Logs.h"

namespace brenwick {

class TextCleanUp {
 public:
  explicit TextCleanUp(Logs& log) : log_(log) {}

  // Splits a name written in run-together capitals: each capital letter gets a space before it
  // unless one stands there; a leading capital therefore gets a leading space. A text that equals
  // its own upper case (a shouted name, digits) comes back as it is.
  std::string ConvertUserCapitals(const std::string& text) const;

  // The trimmed text with each run of one punctuation character shortened to one.
  std::string RemoveRepeatedCharacters(const std::string& text) const;

 private:
  Logs& log_;
};

}  // namespace brenwick

// Texts of the program as texts of Qt.
#pragma once

#include <QString>
#include <cstddef>
#include <string>

#include "base/Text.h"

namespace brenwick {

inline QString ToQt(const std::string& text) { return QString::fromStdString(text); }

// The position of a character as Qt counts, which gives some characters two positions.
inline int PlaceInQt(const std::string& text, std::size_t character) {
  return static_cast<int>(ToQt(std::string(FirstCharacters(text, character))).size());
}

}  // namespace brenwick

// A font, as a view and a measured text need it.
#pragma once

#include <string>

namespace brenwick {

struct Font {
  std::string name = "Sans Serif";
  float size = 8;  // points
  bool bold = false;
  bool italic = false;
  bool strikethrough = false;
  bool underline = false;
  bool operator==(const Font&) const = default;
};

}  // namespace brenwick

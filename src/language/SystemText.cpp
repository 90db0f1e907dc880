#include "language/SystemText.h"

#include "base/Text.h"
#include "language/CodePage.h"

namespace brenwick {

std::string TextFromSystemCodePage(std::string_view line) {
  return IsValidUtf8(line) ? std::string(line) : FromWindows1252(line);
}

}  // namespace brenwick

#include "base/SystemText.h"

#include "base/CodePage.h"
#include "base/Text.h"

namespace brenwick {

std::string TextFromSystemCodePage(std::string_view line) {
  return IsValidUtf8(line) ? std::string(line) : FromWindows1252(line);
}

}  // namespace brenwick

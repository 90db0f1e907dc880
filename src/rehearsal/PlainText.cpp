#include "rehearsal/PlainText.h"

#include "base/Text.h"

namespace brenwick {
namespace {

bool IsLineEndOrTab(char32_t c) {
  return (c >= U'\t' && c <= U'\r') || c == 0x85 || c == 0x2028 || c == 0x2029;
}

// Besides the control characters proper those that turn the direction of the text around.
bool IsControl(char32_t c) {
  return c < 0x20 || (c >= 0x7F && c < 0xA0) || (c >= 0x202A && c <= 0x202E) ||
         (c >= 0x2066 && c <= 0x2069);
}

}  // namespace

std::string PlainText(std::string_view text) {
  std::string plain;
  bool after_return = false;
  for (const char32_t c : Characters(text)) {
    const bool second_half = c == U'\n' && after_return;
    after_return = c == U'\r';
    if (second_half) continue;
    AppendUtf8(plain, IsLineEndOrTab(c) ? U' ' : IsControl(c) ? U'\uFFFD' : c);
  }
  plain.erase(plain.find_last_not_of(' ') + 1);
  return plain;
}

}  // namespace brenwick

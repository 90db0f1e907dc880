#include "base/CodePage.h"

#include <algorithm>
#include <array>
#include <cstddef>

#include "base/Text.h"

namespace brenwick {
namespace {

// The characters of the bytes 80 to 9F; every other byte is the character of its own number.
constexpr char32_t kFirst = 0x80;
constexpr std::array<char32_t, 32> kCharacters = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};
constexpr char32_t kBehind = kFirst + kCharacters.size();

std::optional<char> ByteOf(char32_t character) {
  if (character < kFirst || (character >= kBehind && character <= 0xFF))
    return static_cast<char>(character);
  const auto* found = std::find(kCharacters.begin(), kCharacters.end(), character);
  if (found == kCharacters.end()) return std::nullopt;
  return static_cast<char>(kFirst + static_cast<char32_t>(found - kCharacters.begin()));
}

}  // namespace

std::string FromWindows1252(std::string_view bytes) {
  std::string text;
  text.reserve(bytes.size());
  for (const char byte : bytes) {
    const auto code = static_cast<unsigned char>(byte);
    AppendUtf8(text, code < kFirst || code >= kBehind ? code : kCharacters[code - kFirst]);
  }
  return text;
}

std::optional<std::string> ToWindows1252(std::string_view text) {
  std::string bytes;
  bytes.reserve(text.size());
  for (const char32_t character : Characters(text)) {
    const std::optional<char> byte = ByteOf(character);
    if (!byte) return std::nullopt;
    bytes += *byte;
  }
  return bytes;
}

}  // namespace brenwick

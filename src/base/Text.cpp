#include "base/Text.h"

#include <algorithm>
#include <cstdint>
#include <iterator>

namespace brenwick {
namespace {

constexpr char32_t kReplacement = 0xFFFD;

struct CaseRange {
  char32_t first;
  char32_t last;
  char32_t step;
  std::int32_t distance;
};

#include "base/CaseTable.inc"

template <std::size_t N>
char32_t Map(const CaseRange (&table)[N], char32_t character) {
  const auto* row =
      std::upper_bound(std::begin(table), std::end(table), character,
                       [](char32_t value, const CaseRange& range) { return value < range.first; });
  if (row == std::begin(table)) return character;
  --row;
  if (character > row->last || (character - row->first) % row->step != 0) return character;
  return static_cast<char32_t>(static_cast<std::int32_t>(character) + row->distance);
}

bool IsCharacter(char32_t value) { return value <= 0x10FFFF && (value < 0xD800 || value > 0xDFFF); }

bool IsContinuation(char byte) { return (static_cast<unsigned char>(byte) & 0xC0) == 0x80; }

// One character read from the front of a text: its value, its bytes, and whether it was valid.
struct Decoded {
  char32_t value;
  std::size_t length;
  bool valid;
};

Decoded Decode(std::string_view text) {
  const auto lead = static_cast<unsigned char>(text[0]);
  if (lead < 0x80) return {lead, 1, true};
  const std::size_t length = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : 2;
  if (lead < 0xC2 || lead > 0xF4 || text.size() < length) return {kReplacement, 1, false};
  auto value = static_cast<char32_t>(lead & (0x7F >> length));
  for (std::size_t i = 1; i < length; ++i) {
    if (!IsContinuation(text[i])) return {kReplacement, 1, false};
    value = (value << 6) | (static_cast<unsigned char>(text[i]) & 0x3FU);
  }
  constexpr char32_t kSmallest[] = {0, 0, 0x80, 0x800, 0x10000};
  if (value < kSmallest[length] || !IsCharacter(value)) return {kReplacement, 1, false};
  return {value, length, true};
}

template <typename Mapping>
std::string MapEach(std::string_view text, Mapping mapping) {
  std::string result;
  result.reserve(text.size());
  for (const char32_t character : Characters(text)) AppendUtf8(result, mapping(character));
  return result;
}

}  // namespace

std::u32string Characters(std::string_view text) {
  std::u32string result;
  result.reserve(text.size());
  while (!text.empty()) {
    const Decoded next = Decode(text);
    result += next.value;
    text.remove_prefix(next.length);
  }
  return result;
}

void AppendUtf8(std::string& text, char32_t character) {
  const char32_t c = IsCharacter(character) ? character : kReplacement;
  const auto byte = [&text](char32_t value) { text += static_cast<char>(value); };
  if (c < 0x80) {
    byte(c);
  } else if (c < 0x800) {
    byte(0xC0 | (c >> 6));
    byte(0x80 | (c & 0x3F));
  } else if (c < 0x10000) {
    byte(0xE0 | (c >> 12));
    byte(0x80 | ((c >> 6) & 0x3F));
    byte(0x80 | (c & 0x3F));
  } else {
    byte(0xF0 | (c >> 18));
    byte(0x80 | ((c >> 12) & 0x3F));
    byte(0x80 | ((c >> 6) & 0x3F));
    byte(0x80 | (c & 0x3F));
  }
}

std::string ToUtf8(std::u32string_view characters) {
  std::string result;
  result.reserve(characters.size());
  for (const char32_t character : characters) AppendUtf8(result, character);
  return result;
}

bool IsValidUtf8(std::string_view text) {
  while (!text.empty()) {
    const Decoded next = Decode(text);
    if (!next.valid) return false;
    text.remove_prefix(next.length);
  }
  return true;
}

std::string Repaired(std::string_view text) {
  if (IsValidUtf8(text)) return std::string(text);
  return ToUtf8(Characters(text));
}

char32_t UpperCase(char32_t character) { return Map(kToUpper, character); }
char32_t LowerCase(char32_t character) { return Map(kToLower, character); }

std::string UpperCase(std::string_view text) {
  return MapEach(text, [](char32_t c) { return UpperCase(c); });
}

std::string LowerCase(std::string_view text) {
  return MapEach(text, [](char32_t c) { return LowerCase(c); });
}

std::string_view Trimmed(std::string_view text) {
  const std::size_t first = text.find_first_not_of(' ');
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

bool IsBlank(std::string_view line) { return Trimmed(line).empty(); }

std::string_view FirstCharacters(std::string_view text, std::size_t count) {
  return text.substr(0, text.size() - AfterCharacters(text, count).size());
}

std::string_view AfterCharacters(std::string_view text, std::size_t count) {
  for (; count > 0 && !text.empty(); --count) text.remove_prefix(Decode(text).length);
  return text;
}

std::size_t CharacterCount(std::string_view text) {
  std::size_t count = 0;
  for (; !text.empty(); ++count) text.remove_prefix(Decode(text).length);
  return count;
}

bool LessIgnoringCase(std::string_view a, std::string_view b) {
  while (!a.empty() && !b.empty()) {
    const Decoded left = Decode(a);
    const Decoded right = Decode(b);
    // Neighbours in a list begin alike: most characters need no mapping.
    if (left.value != right.value) {
      const char32_t x = UpperCase(left.value);
      const char32_t y = UpperCase(right.value);
      if (x != y) return x < y;
    }
    a.remove_prefix(left.length);
    b.remove_prefix(right.length);
  }
  return a.empty() && !b.empty();
}

}  // namespace brenwick

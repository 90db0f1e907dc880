// A text of any bytes on its way to the speech engine: what reaches it is harmless, and all of it
// does.
#include <algorithm>
#include <optional>

#include "base/Text.h"
#include "fuzz/Fuzz.h"
#include "voice/SpeakableText.h"

namespace brenwick {
namespace {

bool IsSpace(char32_t c) { return c == U' ' || c == U'\n'; }

// A control character, or a number that stands for no character.
bool IsForbidden(char32_t c) {
  if (c == U'\n') return false;
  if (c < 0x20 || (c >= 0x7F && c < 0xA0)) return true;
  if (c >= 0xD800 && c < 0xE000) return true;
  return c > 0x10FFFF || (c & 0xFFFFU) >= 0xFFFE || (c >= 0xFDD0 && c < 0xFDF0);
}

// The engine crashes at a hyphen that joins nothing: behind it stands a space or the like of what
// stands before it.
bool JoinsOrIsMinus(std::u32string_view text, std::size_t hyphen) {
  if (hyphen == 0) return true;
  const char32_t before = text[hyphen - 1];
  const auto is_digit = [](char32_t c) { return c >= U'0' && c <= U'9'; };
  if (is_digit(before)) return hyphen + 1 < text.size() && is_digit(text[hyphen + 1]);
  return IsSpace(before) || LowerCase(before) != before || UpperCase(before) != before;
}

void CheckCharacters(const std::u32string& text, bool with_hyphens) {
  Expect(std::none_of(text.begin(), text.end(), IsForbidden), "only characters are spoken");
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] == U'-') Expect(JoinsOrIsMinus(text, i), "a hyphen joins something");
    const bool two_spaces = i > 0 && IsSpace(text[i]) && IsSpace(text[i - 1]);
    Expect(with_hyphens || !two_spaces, "a run of spaces is one space");
  }
  if (with_hyphens) return;
  Expect(SpeakableText(ToUtf8(text), false) == text, "what is speakable stays as it is");
}

// The pieces one behind the other are the text, but for spaces between them.
void CheckPieces(std::u32string_view text) {
  std::u32string_view left = text;
  std::u32string_view expected = text;
  for (;;) {
    while (!expected.empty() && IsSpace(expected.front())) expected.remove_prefix(1);
    const std::size_t before = left.size();
    const std::string piece = NextPiece(left);
    if (piece.empty()) break;
    Expect(left.size() < before, "each piece takes something");
    const std::u32string said = Characters(piece);
    Expect(said.size() <= kLongestPiece, "no piece is too long");
    Expect(said.size() <= expected.size(), "no piece says more than there is");
    const bool same =
        std::equal(said.begin(), said.end(), expected.begin(), [](char32_t spoken, char32_t meant) {
          return spoken == meant || (spoken == U' ' && meant == U'\n');
        });
    Expect(same, "a piece says what comes next");
    expected.remove_prefix(said.size());
    Expect(left == expected || std::all_of(expected.begin(), expected.end(), IsSpace),
           "a piece takes what it says");
  }
  Expect(left.empty() && expected.empty(), "everything is said");
}

unsigned ValueOf(char digit) {
  if (digit >= '0' && digit <= '9') return static_cast<unsigned>(digit - '0');
  if (digit >= 'a' && digit <= 'f') return static_cast<unsigned>(digit - 'a') + 10;
  if (digit >= 'A' && digit <= 'F') return static_cast<unsigned>(digit - 'A') + 10;
  return 99;
}

// The text of "&name;" as its sender meant it; nothing where it is to be said as it stands.
std::optional<std::string> Meant(const std::string& name) {
  const std::pair<const char*, const char*> names[] = {
      {"amp", "&"}, {"lt", "<"}, {"gt", ">"}, {"quot", "\""}, {"apos", "'"}};
  for (const auto& [known, character] : names) {
    if (name == known) return character;
  }
  if (!name.starts_with('#')) return std::nullopt;
  const unsigned base = name.starts_with("#x") ? 16 : 10;
  const std::string digits = name.substr(base == 16 ? 2 : 1);
  double number = 0;
  for (const char digit : digits) {
    if (ValueOf(digit) >= base) return std::nullopt;
    number = number * base + ValueOf(digit);
  }
  if (digits.empty() || number > 0x10FFFF) return std::nullopt;
  const auto character = static_cast<char32_t>(number);
  const bool is_space = character == U'\t' || character == U'\n' || character == U'\r';
  if (!is_space && IsForbidden(character)) return std::nullopt;
  return ToUtf8({&character, 1});
}

// A slow reading of the entities, from the front, each once.
std::string WithoutEntities(const std::string& text) {
  constexpr std::size_t kLongestEntity = 16;  // characters
  std::string result;
  std::size_t place = 0;
  while (place < text.size()) {
    if (text[place] == '&') {
      const std::string rest(FirstCharacters(std::string_view(text).substr(place), kLongestEntity));
      const std::size_t end = rest.find(';');
      if (end != std::string::npos) {
        if (const auto meant = Meant(rest.substr(1, end - 1))) {
          result += *meant;
          place += end + 1;
          continue;
        }
      }
    }
    result += text[place++];
  }
  return result;
}

void Check(std::string_view bytes) {
  const std::string text = Repaired(bytes);
  const std::string meant = WithoutEntities(text);
  const std::u32string plain = SpeakableText(bytes, false);
  const std::u32string marked = SpeakableText(bytes, true);
  Expect(plain == SpeakableText(text, false), "invalid bytes are said as if they were repaired");
  Expect(marked == SpeakableText(meant, false), "an entity is its character, and no more");
  CheckCharacters(plain, text.find('-') != std::string::npos);
  CheckCharacters(marked, meant.find('-') != std::string::npos);
  CheckPieces(plain);
  CheckPieces(marked);
}

const FuzzTarget kTarget("speakable", Check);

}  // namespace
}  // namespace brenwick

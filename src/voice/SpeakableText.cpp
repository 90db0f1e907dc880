#include "voice/SpeakableText.h"

#include <algorithm>
#include <optional>

#include "base/Text.h"

namespace brenwick {
namespace {

bool IsSpace(char32_t c) { return c == U' ' || c == U'\n' || c == U'\t' || c == U'\r'; }

bool IsControl(char32_t c) { return c < 0x20 || (c >= 0x7F && c <= 0x9F); }

bool IsCharacter(char32_t c) {
  const bool surrogate = c >= 0xD800 && c <= 0xDFFF;
  const bool noncharacter = (c & 0xFFFE) == 0xFFFE || (c >= 0xFDD0 && c <= 0xFDEF);
  return c <= 0x10FFFF && !surrogate && !noncharacter;
}

bool IsSpeakable(char32_t c) { return IsSpace(c) || (IsCharacter(c) && !IsControl(c)); }

void AppendSpace(std::u32string& text, char32_t space) {
  const char32_t kept = space == U'\n' ? U'\n' : U' ';
  if (text.empty() || !IsSpace(text.back())) {
    text += kept;
  } else if (kept == U'\n') {
    text.back() = kept;
  }
}

void Append(std::u32string& text, char32_t c) {
  if (IsSpace(c)) {
    AppendSpace(text, c);
  } else if (IsSpeakable(c)) {
    text += c;
  }
}

bool IsLetter(char32_t c) { return LowerCase(c) != c || UpperCase(c) != c; }

bool IsDigit(char32_t c) { return c >= U'0' && c <= U'9'; }

// Whether the engine can take the hyphen between these two characters.
bool IsSafeHyphen(char32_t before, char32_t after) {
  return IsSpace(before) || IsLetter(before) || (IsDigit(before) && IsDigit(after));
}

// A hyphen behind a punctuation mark, such as in ",-a", crashes some of the engine's voices, and
// with it the process; U+094B behind it crashes nearly all. Only hyphens that join something, and
// minus signs, are left in the text. In their other places hyphens are not heard anyway.
void ReplaceUnsafeHyphens(std::u32string& text) {
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] != U'-') continue;
    const char32_t before = i > 0 ? text[i - 1] : U' ';
    const char32_t after = i + 1 < text.size() ? text[i + 1] : U' ';
    if (!IsSafeHyphen(before, after)) text[i] = U' ';
  }
}

std::optional<unsigned> DigitValue(char32_t c) {
  if (IsDigit(c)) return c - U'0';
  if (c >= U'a' && c <= U'f') return c - U'a' + 10;
  if (c >= U'A' && c <= U'F') return c - U'A' + 10;
  return std::nullopt;
}

// The number that the digits write, where it is a character that may be said.
std::optional<char32_t> NumberedCharacter(std::u32string_view digits) {
  const bool hexadecimal = digits.starts_with(U'x');
  const unsigned base = hexadecimal ? 16 : 10;
  if (hexadecimal) digits.remove_prefix(1);
  if (digits.empty()) return std::nullopt;
  char32_t value = 0;
  for (const char32_t c : digits) {
    const std::optional<unsigned> digit = DigitValue(c);
    if (!digit || *digit >= base) return std::nullopt;
    value = std::min<char32_t>(value * base + *digit, 0x110000);
  }
  if (!IsSpeakable(value)) return std::nullopt;
  return value;
}

// The character of an entity's name, which stands between "&" and ";".
std::optional<char32_t> EntityCharacter(std::u32string_view name) {
  struct Entity {
    std::u32string_view name;
    char32_t character;
  };
  constexpr Entity kEntities[] = {
      {U"amp", U'&'}, {U"lt", U'<'}, {U"gt", U'>'}, {U"quot", U'"'}, {U"apos", U'\''}};
  if (name.starts_with(U'#')) return NumberedCharacter(name.substr(1));
  for (const Entity& entity : kEntities) {
    if (entity.name == name) return entity.character;
  }
  return std::nullopt;
}

// Takes an entity from the front of the text, or leaves the text as it is.
std::optional<char32_t> TakeEntity(std::u32string_view& text) {
  constexpr std::size_t kLongestEntity = 16;
  if (!text.starts_with(U'&')) return std::nullopt;
  const std::size_t end = text.substr(0, kLongestEntity).find(U';');
  if (end == std::u32string_view::npos) return std::nullopt;
  const std::optional<char32_t> character = EntityCharacter(text.substr(1, end - 1));
  if (character) text.remove_prefix(end + 1);
  return character;
}

bool EndsSentenceBeforeSpace(char32_t c) {
  constexpr std::u32string_view kEnds =
      U".!?\u2026\u061F\u06D4\u0589\u1362\u0964\u0965\u104B\u17D4";
  return kEnds.find(c) != std::u32string_view::npos;
}

bool EndsSentence(char32_t c) {
  constexpr std::u32string_view kEnds = U"\n\u2028\u2029\u3002\uFF01\uFF1F\uFF0E\uFF61";
  return kEnds.find(c) != std::u32string_view::npos;
}

// How many of the text's characters, which are more than a piece's, make the next piece.
std::size_t PieceLength(std::u32string_view text) {
  std::size_t last_space = 0;
  for (std::size_t length = kLongestPiece; length > 0; --length) {
    const char32_t c = text[length - 1];
    if (EndsSentence(c) || (EndsSentenceBeforeSpace(c) && IsSpace(text[length]))) return length;
    if (last_space == 0 && IsSpace(c)) last_space = length;
  }
  return last_space > 0 ? last_space : kLongestPiece;
}

}  // namespace

std::u32string SpeakableText(std::string_view text, bool entities) {
  const std::u32string characters = Characters(text);
  std::u32string speakable;
  speakable.reserve(characters.size());
  for (std::u32string_view rest = characters; !rest.empty();) {
    if (const auto entity = entities ? TakeEntity(rest) : std::nullopt) {
      Append(speakable, *entity);
    } else {
      Append(speakable, rest.front());
      rest.remove_prefix(1);
    }
  }
  ReplaceUnsafeHyphens(speakable);
  return speakable;
}

std::string NextPiece(std::u32string_view& text) {
  while (!text.empty() && IsSpace(text.front())) text.remove_prefix(1);
  const std::size_t length = text.size() > kLongestPiece ? PieceLength(text) : text.size();
  std::u32string piece(text.substr(0, length));
  std::replace(piece.begin(), piece.end(), U'\n', U' ');
  text.remove_prefix(length);
  return ToUtf8(piece);
}

}  // namespace brenwick

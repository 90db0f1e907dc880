// Text: UTF-8 in std::string everywhere; a character is a code point.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace brenwick {

// The characters of a text. Each byte that belongs to no valid character becomes U+FFFD.
std::u32string Characters(std::string_view text);

// The UTF-8 form of characters; surrogates and numbers beyond Unicode become U+FFFD.
std::string ToUtf8(std::u32string_view characters);
void AppendUtf8(std::string& text, char32_t character);

// The text with everything that is not valid UTF-8 replaced by U+FFFD. Text from outside the
// program passes through here once, on its way in.
std::string Repaired(std::string_view text);
bool IsValidUtf8(std::string_view text);

// Upper and lower case by Unicode's simple mappings, whatever the locale: a character always
// becomes exactly one character.
char32_t UpperCase(char32_t character);
char32_t LowerCase(char32_t character);
std::string UpperCase(std::string_view text);
std::string LowerCase(std::string_view text);

// The text without its leading and trailing spaces; only U+0020 counts, no other white space.
std::string_view Trimmed(std::string_view text);
bool IsBlank(std::string_view line);

// The first `count` characters, or the whole text where it has fewer.
std::string_view FirstCharacters(std::string_view text, std::size_t count);
// What is left behind them.
std::string_view AfterCharacters(std::string_view text, std::size_t count);
std::size_t CharacterCount(std::string_view text);

// The order that a sorted list keeps: by characters, upper and lower case alike.
bool LessIgnoringCase(std::string_view a, std::string_view b);

}  // namespace brenwick

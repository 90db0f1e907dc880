// Makes plain text of what other programs send.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace brenwick {

// The beginning of the text, cut behind the last character that fits whole into so many bytes.
std::string_view FirstBytes(std::string_view text, std::size_t bytes);

// True for a text with line ends or other characters that cannot be seen.
bool HasControls(std::string_view text);
// The text with spaces in the place of those characters, and without spaces at the ends.
std::string OneLine(std::string_view text);

// The words of a notification's body. Tags that notifications have are gone (line breaks stay line
// breaks, an image is its description) and entities are the characters they stand for. What merely
// looks like markup stays, because many applications send their text as it is: "I <3 R&D". White
// space at the ends is gone, and every line end is a line feed.
std::string WithoutMarkup(std::string_view body);

}  // namespace brenwick

// Windows-1252, the code page of the language files, to and from the program's UTF-8.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace brenwick {

// The text that the bytes stand for. Every byte stands for a character: the five that the code
// page leaves undefined (81, 8D, 8F, 90, 9D) are the control characters of the same number, so
// that all 256 bytes come back from ToWindows1252 as they were.
std::string FromWindows1252(std::string_view bytes);

// The bytes of a text; nothing when the code page has no byte for one of its characters.
std::optional<std::string> ToWindows1252(std::string_view text);

}  // namespace brenwick

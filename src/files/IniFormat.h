// The settings store as a text that a person can read and change.
//
//   # A comment; so is what follows ";". Blank lines are welcome.
//   [Software\Brenwick\General]
//   Introduce = "1"
//   Path = expand:"%HOME%/x"
//   Left = dword:300
//   Blob = hex:00 ff
//   Words = multi:"one\x00two\x00"
//   Other = hex(5):00 00 01 2c
//
// A section is a key; its lines are the values, each with its type; a number in the parentheses is
// the type's own. Text is UTF-8 in quotes, with the escapes \\ \" \n \r \t and \xHH (the character
// of that number); any other "\" stands for itself. A number may stand without quotes and is a text
// like others. Names and keys that hold special characters, or spaces at an end, are quoted too;
// quoted keys have "\\" between their parts. The root's values stand before the first section.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "files/IniData.h"

namespace brenwick {

std::string ToIni(const IniData& data);

// Nothing where a line is none of the above, and where control characters stand in the text. A line
// that is not valid UTF-8 is read as Windows-1252; CR LF and LF alone both end a line.
std::optional<IniData> FromIni(std::string_view content);

}  // namespace brenwick

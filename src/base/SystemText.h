// Text files that people edit: UTF-8, and where a line is not valid UTF-8, Windows-1252.
#pragma once

#include <string>
#include <string_view>

namespace brenwick {

// A line of such a file as UTF-8.
std::string TextFromSystemCodePage(std::string_view line);

}  // namespace brenwick

// Text files: their lines, and the text behind their bytes.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace brenwick {

// The lines of a file's content, without their line ends; CR LF and LF alone both end a line. What
// stands behind the last line end is a line of its own unless it is empty.
std::vector<std::string_view> Lines(std::string_view content);

// The mark that some editors put in front of UTF-8; it is no text.
inline constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

// The content without that mark.
std::string_view WithoutByteOrderMark(std::string_view content);

}  // namespace brenwick

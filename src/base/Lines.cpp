#include "base/Lines.h"

namespace brenwick {

std::vector<std::string_view> Lines(std::string_view content) {
  std::vector<std::string_view> lines;
  while (!content.empty()) {
    const std::size_t end = content.find('\n');
    std::string_view line = content.substr(0, end);
    if (line.ends_with('\r')) line.remove_suffix(1);
    lines.push_back(line);
    content.remove_prefix(end == std::string_view::npos ? content.size() : end + 1);
  }
  return lines;
}

std::string_view WithoutByteOrderMark(std::string_view content) {
  if (content.starts_with(kByteOrderMark)) content.remove_prefix(kByteOrderMark.size());
  return content;
}

}  // namespace brenwick

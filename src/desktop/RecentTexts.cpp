#include "desktop/RecentTexts.h"

#include <algorithm>

namespace brenwick {

std::string RecentTexts::NewPart(const std::string& contact, const std::string& text,
                                 bool replaces) {
  const auto last = std::find_if(said_.begin(), said_.end(),
                                 [&contact](const Said& each) { return each.contact == contact; });
  std::string part = text;
  if (last != said_.end()) {
    const std::string& before = last->text;
    if (replaces && text == before) {
      part.clear();
    } else if (replaces && text.starts_with(before + '\n')) {
      part = text.substr(before.size() + 1);
    }
    said_.erase(last);
  }
  said_.push_back({contact, text});
  if (said_.size() > kMost) said_.pop_front();
  return part;
}

}  // namespace brenwick

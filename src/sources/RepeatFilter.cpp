#include "sources/RepeatFilter.h"

#include <algorithm>

namespace brenwick {
namespace {

std::string Without(const std::string& before, const std::string& text) {
  if (text == before) return {};
  if (text.starts_with(before + '\n')) return text.substr(before.size() + 1);
  if (text.ends_with('\n' + before)) return text.substr(0, text.size() - before.size() - 1);
  return text;
}

}  // namespace

std::string RepeatFilter::NewPart(const std::string& contact, const std::string& text,
                                  bool replaces) {
  std::deque<std::string>& texts = Of(contact);
  std::string part = text;
  if (replaces) {
    for (const std::string& before : texts) {
      part = std::min(part, Without(before, text),
                      [](const auto& one, const auto& other) { return one.size() < other.size(); });
    }
  }
  std::erase(texts, text);
  texts.push_back(text);
  if (texts.size() > kMostTexts) texts.pop_front();
  return part;
}

// The texts that were said of the contact, who counts from now on as the one heard last.
std::deque<std::string>& RepeatFilter::Of(const std::string& contact) {
  const auto known = std::find_if(said_.begin(), said_.end(),
                                  [&contact](const Said& each) { return each.contact == contact; });
  if (known == said_.end()) {
    said_.push_back({contact, {}});
    if (said_.size() > kMost) said_.pop_front();
  } else {
    std::rotate(known, known + 1, said_.end());
  }
  return said_.back().texts;
}

}  // namespace brenwick

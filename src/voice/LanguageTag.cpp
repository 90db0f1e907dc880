#include "voice/LanguageTag.h"

#include <algorithm>

#include "base/Text.h"

namespace brenwick {

std::string LanguageTag(const std::string& locale) {
  std::string tag = LowerCase(std::string_view(locale).substr(0, locale.find_first_of(".@")));
  std::replace(tag.begin(), tag.end(), '_', '-');
  const bool none = tag.empty() || tag == "c" || tag == "posix";
  return none ? "en-gb" : tag;
}

std::string_view PrimaryLanguage(std::string_view tag) { return tag.substr(0, tag.find('-')); }

int TagDistance(std::string_view tag, std::string_view wanted) {
  constexpr int kSameTag = 0, kWholeLanguage = 1000, kOtherRegion = 2000;
  if (PrimaryLanguage(tag) != PrimaryLanguage(wanted)) return kOtherLanguage;
  if (tag == wanted) return kSameTag;
  return tag == PrimaryLanguage(wanted) ? kWholeLanguage : kOtherRegion;
}

}  // namespace brenwick

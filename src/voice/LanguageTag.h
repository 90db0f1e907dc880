// Tags of languages, such as "en-gb", and how near two are to each other.
#pragma once

#include <string>
#include <string_view>

namespace brenwick {

// "en_GB.UTF-8" becomes "en-gb". An empty locale, "C" and "POSIX" mean British English, as for the
// engine.
std::string LanguageTag(const std::string& locale);

// "en" of "en-gb".
std::string_view PrimaryLanguage(std::string_view tag);

// The lower, the better the tag suits the wanted one; both are in lower case. There are a thousand
// steps between two kinds.
inline constexpr int kOtherLanguage = 3000;
int TagDistance(std::string_view tag, std::string_view wanted);

}  // namespace brenwick

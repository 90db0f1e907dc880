// The placeholder in texts: "%a" stands for one argument.
#pragma once

#include <string>
#include <string_view>

namespace brenwick {

// The template with its first "%a" replaced by the argument; a template without one comes back as
// it is.
//
// The part in front of "%a" is taken from the template, the part behind it from the template
// without its leading and trailing spaces, counted from the front of the whole. So trailing spaces
// are dropped, and every leading space costs a character behind "%a". Raises kInvalidCall when
// there are more leading spaces than characters behind it.
std::string GetText(std::string_view text, std::string_view argument);

}  // namespace brenwick

#include "language/GetText.h"

#include <cstddef>

#include "base/Failure.h"
#include "base/Text.h"

namespace brenwick {

std::string GetText(std::string_view text, std::string_view argument) {
  constexpr std::string_view kPlaceholder = "%a";
  const std::size_t found = text.find(kPlaceholder);
  if (found == std::string_view::npos) return std::string(text);
  const std::string_view head = text.substr(0, found);
  const std::string_view trimmed = Trimmed(text);
  const std::size_t passed = CharacterCount(head) + kPlaceholder.size();
  if (CharacterCount(trimmed) < passed) throw Failure(kInvalidCall);
  return std::string(head).append(argument).append(AfterCharacters(trimmed, passed));
}

}  // namespace brenwick

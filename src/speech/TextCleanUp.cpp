#include "speech/TextCleanUp.h"

#include <string_view>

#include "base/Text.h"

namespace brenwick {
namespace {

constexpr std::string_view kPunctuation = "!@#$%^&*()_+-=~`{[}]|\\:;'<,>.?/";

std::string SplitCapitals(std::string_view text) {
  std::string result;
  char32_t previous = 0;
  for (const char32_t character : Characters(Trimmed(text))) {
    const bool capital = LowerCase(character) != character;
    if (capital && previous != U' ') result += ' ';
    AppendUtf8(result, character);
    previous = character;
  }
  return result;
}

// Punctuation is plain ASCII, so bytes can be compared: no byte of a longer character equals one.
std::string ShortenRuns(std::string_view text) {
  std::string result;
  result.reserve(text.size());
  for (const char byte : Trimmed(text)) {
    const bool repeats = !result.empty() && result.back() == byte;
    if (!repeats || kPunctuation.find(byte) == std::string_view::npos) result += byte;
  }
  return result;
}

}  // namespace

std::string TextCleanUp::ConvertUserCapitals(const std::string& text) const {
  constexpr const char* kProcedure = "ConvertUserCapitals";
  return log_.Trap("modFunctions", kProcedure, [&] {
    if (text == UpperCase(text)) return text;
    log_.DebugWrite(kProcedure, "String in: " + text);
    std::string result = SplitCapitals(text);
    log_.DebugWrite(kProcedure, "String out: " + result);
    return result;
  });
}

std::string TextCleanUp::RemoveRepeatedCharacters(const std::string& text) const {
  constexpr const char* kProcedure = "RemoveRepeatedCharacters";
  return log_.Trap("modFunctions", kProcedure, [&] {
    log_.DebugWrite(kProcedure, "String in: " + text);
    std::string result = ShortenRuns(text);
    log_.DebugWrite(kProcedure, "String out: " + result);
    return result;
  });
}

}  // namespace brenwick

// Numbers read from text, against a slow reading of the same words.
#include <cmath>
#include <cstring>

#include "base/Failure.h"
#include "base/Numbers.h"
#include "fuzz/Fuzz.h"

namespace brenwick {
namespace {

constexpr std::string_view kSpaces = " ";

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

// The longest decimal that the text starts with; "" where it starts with none.
std::string Decimal(std::string_view text) {
  std::string found;
  bool digits = false;
  bool point = false;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const char c = text[i];
    const bool sign = i == 0 && (c == '+' || c == '-');
    if (!sign && !IsDigit(c) && (c != '.' || point)) break;
    digits = digits || IsDigit(c);
    point = point || c == '.';
    found += c;
  }
  return digits ? found : "";
}

double ValueOf(const std::string& decimal) {
  return decimal.empty() ? 0 : std::strtod(decimal.c_str(), nullptr);
}

std::string_view WithoutSpaces(std::string_view text, bool behind) {
  while (text.starts_with(kSpaces)) text.remove_prefix(1);
  while (behind && text.ends_with(kSpaces)) text.remove_suffix(1);
  return text;
}

// Rounded by looking at what lies to both sides.
bool Fits(double number, long& rounded) {
  if (!(number > -40000 && number < 40000)) return false;
  const double below = std::floor(number);
  rounded = static_cast<long>(below);
  const double above = number - below;
  if (above > 0.5 || (above == 0.5 && rounded % 2 != 0)) ++rounded;
  return rounded >= -32768 && rounded <= 32767;
}

void CheckRounding(double number) {
  long expected = 0;
  const bool fits = Fits(number, expected);
  try {
    const std::int16_t rounded = ToInteger16(number);
    Expect(fits && rounded == expected, "ToInteger16 rounds to the nearest, halves to even");
  } catch (const Failure& failure) {
    Expect(!fits && failure.Number() == kOverflow, "ToInteger16 overflows only beyond 16 bits");
  }
}

void CheckText(std::string_view text) {
  const double leading = ValueOf(Decimal(WithoutSpaces(text, false)));
  Expect(LeadingNumber(text) == leading, "LeadingNumber reads the decimal in front");
  CheckRounding(leading);
  const std::string_view whole = WithoutSpaces(text, true);
  const std::string decimal = Decimal(whole);
  const bool number = !decimal.empty() && decimal == whole;
  try {
    const double value = WholeNumber(text);
    Expect(number && value == ValueOf(decimal), "WholeNumber reads whole decimals");
  } catch (const Failure& failure) {
    Expect(!number && failure.Number() == kTypeMismatch, "WholeNumber refuses all else");
  }
}

const FuzzTarget kTarget("numbers", [](std::string_view bytes) {
  CheckText(bytes);
  double number = 0;
  if (bytes.size() >= sizeof number) {
    std::memcpy(&number, bytes.data(), sizeof number);
    CheckRounding(number);
  }
});

}  // namespace
}  // namespace brenwick

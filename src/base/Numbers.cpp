#include "base/Numbers.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <limits>

#include "base/Failure.h"
#include "base/Text.h"

namespace brenwick {
namespace {

constexpr std::string_view kDigits = "0123456789";

std::size_t CountDigits(std::string_view text) {
  const std::size_t end = text.find_first_not_of(kDigits);
  return end == std::string_view::npos ? text.size() : end;
}

struct Parsed {
  double value = 0;
  std::size_t length = 0;  // 0: the text does not start with a number
};

Parsed ParseDecimal(std::string_view text) {
  const std::size_t sign = !text.empty() && (text[0] == '-' || text[0] == '+') ? 1 : 0;
  const std::size_t whole = CountDigits(text.substr(sign));
  std::size_t end = sign + whole;
  std::size_t fraction = 0;
  if (end < text.size() && text[end] == '.') {
    fraction = CountDigits(text.substr(end + 1));
    end += 1 + fraction;
  }
  if (whole + fraction == 0) return {};
  Parsed result{0, end};
  const auto read = std::from_chars(text.data() + sign, text.data() + end, result.value,
                                    std::chars_format::fixed);
  // Out of range is either far too large or, without a digit before the point, next to nothing.
  const bool large = text.substr(sign, whole).find_first_not_of('0') != std::string_view::npos;
  if (read.ec == std::errc::result_out_of_range) {
    result.value = large ? std::numeric_limits<double>::infinity() : 0;
  }
  if (text[0] == '-') result.value = -result.value;
  return result;
}

}  // namespace

double LeadingNumber(std::string_view text) {
  text.remove_prefix(std::min(text.find_first_not_of(' '), text.size()));
  return ParseDecimal(text).value;
}

std::int16_t ToInteger16(double number) {
  const double rounded = std::nearbyint(number);
  if (!(rounded >= std::numeric_limits<std::int16_t>::min() &&
        rounded <= std::numeric_limits<std::int16_t>::max())) {
    throw Failure(kOverflow);
  }
  return static_cast<std::int16_t>(rounded);
}

std::int16_t LeadingInteger16(std::string_view text) { return ToInteger16(LeadingNumber(text)); }

double WholeNumber(std::string_view text) {
  const std::string_view number = Trimmed(text);
  const Parsed parsed = ParseDecimal(number);
  if (parsed.length == 0 || parsed.length != number.size()) throw Failure(kTypeMismatch);
  return parsed.value;
}

std::int16_t WholeInteger16(std::string_view text) { return ToInteger16(WholeNumber(text)); }

}  // namespace brenwick

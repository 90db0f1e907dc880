// Reading numbers from text, rounding, and the 16-bit range: the only place where either happens.
#pragma once

#include <cstdint>
#include <string_view>

namespace brenwick {

// The decimal number that the text starts with (an optional sign, digits, an optional fraction),
// leading spaces passed over; 0 when it does not start with one.
double LeadingNumber(std::string_view text);

// Rounded to the nearest whole number, halves to the even neighbour.
// Raises kOverflow outside the 16-bit range −32,768 to 32,767.
std::int16_t ToInteger16(double number);

// LeadingNumber and ToInteger16 in one: what a text box with a number stands for.
std::int16_t LeadingInteger16(std::string_view text);

// The whole text as a number, spaces around it allowed. Raises kTypeMismatch when it is anything
// else, an empty text included.
double WholeNumber(std::string_view text);

// WholeNumber and ToInteger16 in one.
std::int16_t WholeInteger16(std::string_view text);

}  // namespace brenwick

// Fast paths between numbers and text, for numbers with few digits and no exponent. They give
// exactly what the general conversions give, or decline; s_str_convert.h tries them first.
#pragma once

#include <string_view>

#include "utils/s_double.h"

namespace Quarn {

// Writes the general notation with 15 significant digits and returns its end. Null for a magnitude
// below 0.0001, one that rounds to 1e15 or more, and what is not finite.
// REQUIRES: room for 32 characters.
char* WriteOrdinary(char* out, double value);

// Reads a text that is a number as a whole: optional sign, digits with at most one point, at most
// 2^53 without the point. NaN for any other text.
s_double ReadOrdinary(std::string_view text);

}  // namespace Quarn

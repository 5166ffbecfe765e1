// The short ways between numbers and their text, for the numbers that people type and read: a few
// digits, no exponent. They give exactly what the general conversions give, or say that they
// cannot; s_str_convert.h tries them first.
#pragma once

#include <string_view>

#include "utils/s_double.h"

namespace Quarn {

// Writes what the general notation with 15 significant digits gives, and returns its end; null for
// a number below 0.0001, one that rounds to 1e15 or more, and one that is not finite. REQUIRES:
// room for 32 characters.
char* WriteOrdinary(char* out, double value);

// Reads a text that is one number whole: a sign or none, digits with at most one full stop, worth
// not more than 2^53 without the full stop. NaN for any other text.
s_double ReadOrdinary(std::string_view text);

}  // namespace Quarn

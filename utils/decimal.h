// Fast paths between numbers and text, for numbers with few digits and no exponent. They give
// exactly what the general conversions give, or decline; s_str_convert.h tries them first.
#pragma once

#include <cstdint>
#include <limits>
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

// digits / 10^decimals, correctly rounded; NaN for digits above 2^53.
// REQUIRES: 0 <= decimals <= 22.
inline double MakeOrdinary(std::uint64_t digits, int decimals) {
  // All powers of ten that a double holds exactly; the quotient of two exact doubles is rounded
  // once.
  static constexpr double kExactPowersOfTen[] = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                                 1e8,  1e9,  1e10, 1e11, 1e12, 1e13, 1e14, 1e15,
                                                 1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};
  constexpr std::uint64_t kLargestExactWhole = std::uint64_t{1} << 53;
  if (digits > kLargestExactWhole) return std::numeric_limits<double>::quiet_NaN();
  const auto number = static_cast<double>(digits);
  return decimals == 0 ? number : number / kExactPowersOfTen[decimals];
}

}  // namespace Quarn

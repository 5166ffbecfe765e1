// Which texts are numbers as a user writes them.
#pragma once

#include <string_view>

namespace Quarn {

// Digits with at most one full stop, then perhaps an exponent after a lower-case "e"; one sign
// before, blanks around. "12", "-3.5e-2", ".5" and "5." are numbers; "1E5", "1e" and "12a" are not.
// Kept on purpose: no digit is asked for before the exponent, so "", "+", "." and "e5" are numbers
// too; what cannot be read as one has the value 0.
bool IsNumberLiteral(std::string_view text);

// What such a text begins with, but for the empty one.
inline constexpr char kNumberStarts[] = "0123456789.e+- ";

}  // namespace Quarn

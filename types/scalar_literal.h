// Which texts are numbers as a user writes them, and what numbers they are. This is the one place
// that knows: all that asks for a number literal asks here.
#pragma once

#include <cmath>
#include <string_view>

#include "../interpreter/registry.h"
#include "../utils/api.h"

namespace Quarn {

// The number that a literal stands for; NaN, for which there is no literal, for any other text. A
// literal has digits with at most one full stop, then perhaps an exponent after a lower-case "e";
// one sign before, blanks around. "12", "-3.5e-2", ".5" and "5." are numbers; "1E5", "1e" and "12a"
// are not. Kept on purpose: no digit is asked for before the exponent, so "", "+", "." and "e5" are
// numbers too; what cannot be read as one has the value 0.
MIRLOW_API double ReadNumberLiteral(std::string_view text);

// The number that a text begins with, as far as its digits and its full stop go: the whole of what
// most literals are. None for a sign, for more digits than are surely read exactly, and for none.
MIRLOW_API NumberPrefix ReadNumberPrefix(const char* begin, const char* end);

// Is the text such a literal?
inline bool IsNumberLiteral(std::string_view text) { return !std::isnan(ReadNumberLiteral(text)); }

// What such a text begins with, but for the empty one.
inline constexpr char kNumberStarts[] = "0123456789.e+- ";

}  // namespace Quarn

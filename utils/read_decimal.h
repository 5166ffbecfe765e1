// Reads numbers exactly where the standard library has no std::from_chars for them, as libc++ 14:
// the nearest floating number, a tie to the even one. It uses no memory but its own and no locale.
#pragma once

#include <string_view>

namespace Quarn {

// The number of a text that is one as a whole: an optional minus sign, digits with at most one full
// stop, an optional exponent. One that is too large is infinite, one that is too small is 0, with
// its sign. REQUIRES: the text is such a number, with a digit before any exponent.
template <class T>
T ReadDecimal(std::string_view number);

extern template double ReadDecimal<double>(std::string_view number);
extern template float ReadDecimal<float>(std::string_view number);

}  // namespace Quarn

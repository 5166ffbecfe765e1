#include "types/scalar_literal.h"

#include <cmath>
#include <cstdint>
#include <limits>

#include "utils/decimal.h"
#include "utils/s_str_convert.h"
#include "utils/trim.h"

namespace Quarn {
namespace {

bool IsSign(const char* at, const char* end) { return at != end && (*at == '+' || *at == '-'); }

bool IsDigit(char c) { return static_cast<unsigned char>(c - '0') <= 9; }

// Is the rest of the text an exponent?  REQUIRES: there is a rest.
bool IsExponent(const char* at, const char* end) {
  if (*at++ != 'e') return false;
  if (IsSign(at, end)) ++at;
  if (at == end) return false;
  while (at != end && IsDigit(*at)) ++at;
  return at == end;
}

// Adds the digits of a text to a number, and returns the end of them.
const char* ReadDigits(const char* at, const char* last, std::uint64_t& number) {
  for (; at != last && IsDigit(*at); ++at) {
    number = number * 10 + static_cast<unsigned char>(*at - '0');
  }
  return at;
}

}  // namespace

NumberPrefix ReadNumberPrefix(const char* begin, const char* end) {
  // So many characters do not overflow; what is cut off might go on.
  constexpr std::ptrdiff_t kMostCharacters = 19;
  const char* last = end - begin > kMostCharacters ? begin + kMostCharacters : end;
  std::uint64_t digits = 0;
  const char* at = ReadDigits(begin, last, digits);
  std::ptrdiff_t decimals = 0;
  std::ptrdiff_t count = at - begin;
  if (at != last && *at == '.') {
    const char* const fraction = at + 1;
    at = ReadDigits(fraction, last, digits);
    decimals = at - fraction;
    count += decimals;
  }
  if (count == 0 || (at == last && last != end)) return {nullptr, 0};
  const double number = MakeOrdinary(digits, static_cast<int>(decimals));
  return {std::isnan(number) ? nullptr : at, number};
}

double ReadNumberLiteral(std::string_view text) {
  const std::string_view trimmed = TrimSpaces(text);
  const char* at = trimmed.data();
  const char* end = at + trimmed.size();
  const bool is_signed = IsSign(at, end);
  const bool is_negative = is_signed && *at == '-';
  if (is_signed) ++at;
  const NumberPrefix prefix = ReadNumberPrefix(at, end);
  if (prefix.end == end) return is_negative ? -prefix.number : prefix.number;
  bool has_point = false;
  for (; at != end && (IsDigit(*at) || (*at == '.' && !has_point)); ++at) {
    if (*at == '.') has_point = true;
  }
  if (at != end && !IsExponent(at, end)) return std::numeric_limits<double>::quiet_NaN();
  return ReadDouble(text).value.Get();
}

}  // namespace Quarn

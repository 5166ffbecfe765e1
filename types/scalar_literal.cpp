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

}  // namespace

NumberPrefix ReadNumberPrefix(const char* begin, const char* end) {
  // So many characters do not overflow; what is cut off might go on.
  constexpr std::ptrdiff_t kMostCharacters = 19;
  const char* last = end - begin > kMostCharacters ? begin + kMostCharacters : end;
  std::uint64_t digits = 0;
  const char* point = nullptr;
  const char* at = begin;
  for (; at != last; ++at) {
    if (IsDigit(*at)) {
      digits = digits * 10 + static_cast<unsigned char>(*at - '0');
    } else if (*at == '.' && !point) {
      point = at;
    } else {
      break;
    }
  }
  if ((at == last && last != end) || at - begin == (point ? 1 : 0)) return {nullptr, 0};
  const double number = MakeOrdinary(digits, point ? static_cast<int>(at - point - 1) : 0);
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

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
[[gnu::noinline]] bool IsExponent(const char* at, const char* end) {
  if (*at++ != 'e') return false;
  if (IsSign(at, end)) ++at;
  if (at == end) return false;
  while (at != end && IsDigit(*at)) ++at;
  return at == end;
}

}  // namespace

double ReadNumberLiteral(std::string_view text) {
  const std::string_view trimmed = TrimSpaces(text);
  const char* at = trimmed.data();
  const char* end = at + trimmed.size();
  const bool is_signed = IsSign(at, end);
  const char* begin = at += is_signed ? 1 : 0;
  std::uint64_t digits = 0;  // modulo 2^64
  const char* point = nullptr;
  for (; at != end; ++at) {
    if (IsDigit(*at)) {
      digits = digits * 10 + static_cast<unsigned char>(*at - '0');
    } else if (*at == '.' && !point) {
      point = at;
    } else if (IsExponent(at, end)) {
      return ReadDouble(text).value.Get();
    } else {
      return std::numeric_limits<double>::quiet_NaN();
    }
  }
  // What has so many characters did not overflow, and is read by now.
  constexpr std::ptrdiff_t kMostCharacters = 19;
  const std::ptrdiff_t count = end - begin;
  if (count > kMostCharacters || count == (point ? 1 : 0)) return ReadDouble(text).value.Get();
  const double size = MakeOrdinary(digits, point ? static_cast<int>(end - point - 1) : 0);
  if (std::isnan(size)) return ReadDouble(text).value.Get();
  return is_signed && *trimmed.data() == '-' ? -size : size;
}

}  // namespace Quarn

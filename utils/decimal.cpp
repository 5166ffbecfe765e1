#include "utils/decimal.h"

#include <bit>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <limits>

#include "utils/wide.h"

namespace Quarn {
namespace {

constexpr int kDigits = 15;

constexpr std::uint64_t kPowersOfTen[] = {
    1U,
    10U,
    100U,
    1000U,
    10000U,
    100000U,
    1000000U,
    10000000U,
    100000000U,
    1000000000U,
    10000000000U,
    100000000000U,
    1000000000000U,
    10000000000000U,
    100000000000000U,
    1000000000000000U,
    10000000000000000U,
    100000000000000000U,
    1000000000000000000U,
    10000000000000000000U,
};
constexpr std::uint64_t kLeast15Digits = kPowersOfTen[kDigits - 1];

constexpr double kNoNumber = std::numeric_limits<double>::quiet_NaN();

// With leading zeros.
void WriteDigits(char* out, std::uint64_t value, int count) {
  static constexpr char kPairs[] =
      "00010203040506070809101112131415161718192021222324252627282930313233343536373839"
      "40414243444546474849505152535455565758596061626364656667686970717273747576777879"
      "8081828384858687888990919293949596979899";
  for (; count >= 2; count -= 2, value /= 100) {
    std::memcpy(out + count - 2, kPairs + 2 * (value % 100), 2);
  }
  if (count) *out = static_cast<char>('0' + value);
}

char* WriteWhole(char* out, std::uint64_t value) {
  int count = 1;
  while (value >= kPowersOfTen[count]) ++count;
  WriteDigits(out, value, count);
  return out + count;
}

// digits * 10^(exponent - 14); the first of the 15 digits is not 0.
struct Rounded {
  std::uint64_t digits;
  int exponent;
};

// m * 2^-shift, correctly rounded to 15 digits, ties to even: m * 10^n fits 128 bits.
Rounded RoundTo15Digits(std::uint64_t m, int shift, int exponent) {
  while (true) {
    const Wide scaled = Multiply(m, kPowersOfTen[kDigits - 1 - exponent]);
    std::uint64_t digits = ShiftRight(scaled, shift);
    // The exponent was guessed one too low.
    if (digits >= 10 * kLeast15Digits) {
      ++exponent;
      continue;
    }
    const bool is_half = HasBit(scaled, shift - 1);
    if (is_half && (HasBitBelow(scaled, shift - 1) || digits % 2 == 1)) ++digits;
    if (digits == 10 * kLeast15Digits) return {kLeast15Digits, exponent + 1};
    return {digits, exponent};
  }
}

// REQUIRES: 0.0001 <= value < 1e15.
Rounded RoundTo15Digits(double value) {
  // Not std::bit_cast, which libc++ 13 lacks; emscripten has that one.
  const auto bits = __builtin_bit_cast(std::uint64_t, value);
  constexpr int kFractionBits = 52;
  constexpr std::uint64_t kHiddenBit = std::uint64_t{1} << kFractionBits;
  const int power = static_cast<int>(bits >> kFractionBits) - 1023;
  const std::uint64_t m = (bits & (kHiddenBit - 1)) | kHiddenBit;
  // 1233 / 4096 is just below log10(2), so the guess is right or one too low.
  const int guess = (power * 1233) >> 12;
  return RoundTo15Digits(m, kFractionBits - power, guess);
}

// The eight digits of a number below 10^8, one in each byte, the last one in the highest: all at
// once, first as two numbers of four digits, then four of two. The factors divide by 100 and 10.
constexpr std::uint64_t SpreadDigits(std::uint64_t value) {
  const std::uint64_t fours = value / 10000 | (value % 10000) << 32;
  const std::uint64_t hundreds = (fours * 10486 >> 20) & 0x0000'007F'0000'007F;
  const std::uint64_t twos = hundreds | (fours - 100 * hundreds) << 16;
  const std::uint64_t tens = (twos * 103 >> 10) & 0x000F'000F'000F'000F;
  return tens | (twos - 10 * tens) << 8;
}
static_assert(SpreadDigits(90'070'050) == 0x0005'0000'0700'0009);

void WriteSpread(char* out, std::uint64_t digits) {
  digits |= 0x3030'3030'3030'3030;  // '0' in each byte
  if constexpr (std::endian::native == std::endian::big) digits = __builtin_bswap64(digits);
  std::memcpy(out, &digits, sizeof digits);
}

// Writes 15 digits wherever they are shorter than that: there is room, and no branch.
char* WriteFixed(char* out, const Rounded& number) {
  constexpr std::uint64_t kHalf = kPowersOfTen[8];
  const std::uint64_t high = SpreadDigits(number.digits / kHalf);
  const std::uint64_t low = SpreadDigits(number.digits % kHalf);
  // Without the zeros at the end.
  const int count = low ? 15 - std::countl_zero(low) / 8 : 7 - std::countl_zero(high) / 8;
  char text[2 * (kDigits + 1)] = {};
  WriteSpread(text, high);
  WriteSpread(text + 8, low);
  const char* const digits = text + 1;    // the first of 16 is 0
  const int whole = number.exponent + 1;  // digits before the point
  if (whole <= 0) {
    std::memcpy(out, "0.000", 5);
    std::memcpy(out + 2 - whole, digits, kDigits);
    return out + 2 - whole + count;
  }
  std::memcpy(out, digits, kDigits);
  if (count <= whole) return out + whole;
  out[whole] = '.';
  std::memcpy(out + whole + 1, digits + whole, kDigits);
  return out + count + 1;
}

}  // namespace

char* WriteOrdinary(char* out, double value) {
  const double size = std::fabs(value);
  if (!(size >= 0.0001 && size < 1e15)) return nullptr;
  if (value < 0) *out++ = '-';
  const auto whole = static_cast<std::uint64_t>(size);
  if (static_cast<double>(whole) == size) return WriteWhole(out, whole);
  const Rounded rounded = RoundTo15Digits(size);
  // 999999999999999.9 rounds up to 1e+15, in scientific notation.
  if (rounded.exponent >= kDigits) return nullptr;
  return WriteFixed(out, rounded);
}

s_double ReadOrdinary(std::string_view text) {
  const char* at = text.data();
  const char* end = at + text.size();
  const bool negative = at != end && *at == '-';
  if (at != end && (*at == '-' || *at == '+')) ++at;
  // 19 digits cannot overflow.
  if (at == end || end - at > 19) return kNoNumber;
  std::uint64_t whole = 0;
  const char* point = nullptr;
  const char* begin = at;
  for (; at != end; ++at) {
    const auto digit = static_cast<unsigned char>(*at - '0');
    if (digit <= 9) {
      whole = whole * 10 + digit;
    } else if (*at == '.' && !point) {
      point = at;
    } else {
      return kNoNumber;
    }
  }
  if (point && end - begin == 1) return kNoNumber;
  const double size = MakeOrdinary(whole, point ? static_cast<int>(end - point - 1) : 0);
  return negative ? -size : size;
}

}  // namespace Quarn

#include "utils/read_decimal.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <limits>

namespace Quarn {
namespace {

// No tie between two doubles has more digits; those behind these decide only whether it is one.
constexpr std::size_t kMostDigits = 800;

// A text as digits * 10^exponent. Leading zeros are left out.
struct LongDecimal {
  std::array<std::uint8_t, kMostDigits + 1> digits;
  std::size_t count = 0;
  std::int64_t exponent = 0;
  bool is_negative = false;
};

// Far beyond all exponents of floating numbers, and of texts that fit into memory.
constexpr std::int64_t kLargestExponent = std::int64_t{1} << 60;

std::int64_t ReadExponent(std::string_view text) {
  const bool is_negative = text.starts_with('-');
  if (is_negative || text.starts_with('+')) text.remove_prefix(1);
  std::int64_t exponent = 0;
  for (const char c : text) {
    exponent = std::min(exponent, kLargestExponent / 16) * 10 + (c - '0');
  }
  return is_negative ? -exponent : exponent;
}

LongDecimal Take(std::string_view text) {
  LongDecimal decimal;
  decimal.is_negative = text.starts_with('-');
  if (decimal.is_negative) text.remove_prefix(1);
  bool is_behind_point = false;
  bool has_more = false;
  for (std::size_t at = 0; at < text.size(); ++at) {
    const char c = text[at];
    if (c == '.') {
      is_behind_point = true;
      continue;
    }
    if (c == 'e' || c == 'E') {
      decimal.exponent += ReadExponent(text.substr(at + 1));
      break;
    }
    if (is_behind_point) --decimal.exponent;
    if (c == '0' && decimal.count == 0) continue;
    if (decimal.count < kMostDigits) {
      decimal.digits[decimal.count++] = static_cast<std::uint8_t>(c - '0');
    } else {
      ++decimal.exponent;
      if (c != '0') has_more = true;
    }
  }
  // One digit stands for all that were left out.
  if (has_more) {
    decimal.digits[decimal.count++] = 1;
    --decimal.exponent;
  }
  return decimal;
}

// A natural number of any size that occurs here: that of 10^1140, moved by 64 bits and more.
class Natural {
 public:
  bool IsZero() const { return size_ == 0; }
  // REQUIRES: it is not 0.
  int GetBits() const { return static_cast<int>(32 * size_) - std::countl_zero(words_[size_ - 1]); }

  void MultiplyAdd(std::uint32_t factor, std::uint32_t summand) {
    std::uint64_t carry = summand;
    for (std::size_t i = 0; i < size_; ++i) {
      carry += std::uint64_t{words_[i]} * factor;
      words_[i] = static_cast<std::uint32_t>(carry);
      carry >>= 32;
    }
    if (carry) words_[size_++] = static_cast<std::uint32_t>(carry);
  }

  // REQUIRES: it is not 0.
  void ShiftLeft(int bits) {
    const auto words = static_cast<std::size_t>(bits / 32);
    if (words) {
      for (std::size_t i = size_; i-- > 0;) words_[i + words] = words_[i];
      std::fill_n(words_.begin(), words, 0U);
      size_ += words;
    }
    MultiplyAdd(std::uint32_t{1} << (bits % 32), 0);
  }
  void Halve() {
    for (std::size_t i = 0; i < size_; ++i) {
      const std::uint32_t above = i + 1 < size_ ? words_[i + 1] << 31 : 0;
      words_[i] = words_[i] >> 1 | above;
    }
    Trim();
  }

  bool IsLess(const Natural& other) const {
    if (size_ != other.size_) return size_ < other.size_;
    for (std::size_t i = size_; i-- > 0;) {
      if (words_[i] != other.words_[i]) return words_[i] < other.words_[i];
    }
    return false;
  }
  // REQUIRES: the other is not greater.
  void Subtract(const Natural& other) {
    std::int64_t carry = 0;
    for (std::size_t i = 0; i < size_; ++i) {
      carry += std::int64_t{words_[i]} - (i < other.size_ ? other.words_[i] : 0);
      words_[i] = static_cast<std::uint32_t>(carry);
      carry >>= 32;
    }
    Trim();
  }

 private:
  void Trim() {
    while (size_ && words_[size_ - 1] == 0) --size_;
  }

  std::array<std::uint32_t, 160> words_;
  std::size_t size_ = 0;
};

// quotient * 2^-shift, and whether there is a rest.
struct Quotient {
  std::uint64_t bits;
  int shift;
  bool has_rest;
};

// To 63 or 64 bits.
Quotient Divide(Natural numerator, Natural denominator) {
  const int shift = 63 - (numerator.GetBits() - denominator.GetBits());
  if (shift >= 0) numerator.ShiftLeft(shift);
  denominator.ShiftLeft(63 + std::max(-shift, 0));
  Quotient quotient{0, shift, false};
  for (int i = 0; i < 64; ++i) {
    quotient.bits <<= 1;
    if (!numerator.IsLess(denominator)) {
      numerator.Subtract(denominator);
      quotient.bits |= 1;
    }
    denominator.Halve();
  }
  quotient.has_rest = !numerator.IsZero();
  return quotient;
}

template <class T>
T Round(const Quotient& quotient) {
  using Limits = std::numeric_limits<T>;
  // Of the last bit that a number of this size has.
  const int highest = 63 - std::countl_zero(quotient.bits) - quotient.shift;
  const int lowest = std::max(highest, Limits::min_exponent - 1) - (Limits::digits - 1);
  const int dropped = lowest + quotient.shift;
  if (dropped > 64) return 0;
  std::uint64_t kept = dropped == 64 ? 0 : quotient.bits >> dropped;
  const std::uint64_t half = std::uint64_t{1} << (dropped - 1);
  const bool is_half = (quotient.bits & half) != 0;
  const bool is_more = (quotient.bits & (half - 1)) != 0 || quotient.has_rest;
  if (is_half && (is_more || kept % 2 == 1)) ++kept;
  return std::ldexp(static_cast<T>(kept), lowest);
}

template <class T>
T ReadPositive(const LongDecimal& decimal) {
  if (decimal.count == 0) return 0;
  // Where the full stop would stand.
  const std::int64_t whole = static_cast<std::int64_t>(decimal.count) + decimal.exponent;
  if (whole > 310) return std::numeric_limits<T>::infinity();
  if (whole < -330) return 0;
  Natural numerator;
  Natural denominator;
  denominator.MultiplyAdd(0, 1);
  for (std::size_t i = 0; i < decimal.count; ++i) numerator.MultiplyAdd(10, decimal.digits[i]);
  for (std::int64_t i = 0; i < decimal.exponent; ++i) numerator.MultiplyAdd(10, 0);
  for (std::int64_t i = 0; i > decimal.exponent; --i) denominator.MultiplyAdd(10, 0);
  return Round<T>(Divide(numerator, denominator));
}

}  // namespace

template <class T>
T ReadDecimal(std::string_view number) {
  const LongDecimal decimal = Take(number);
  const T size = ReadPositive<T>(decimal);
  return decimal.is_negative ? -size : size;
}

template double ReadDecimal<double>(std::string_view number);
template float ReadDecimal<float>(std::string_view number);

}  // namespace Quarn

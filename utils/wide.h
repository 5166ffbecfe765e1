// A product of two numbers of 64 bits, of which some machines know only how to make it in parts.
#pragma once

#include <cstdint>

namespace Quarn {

// high * 2^64 + low.
struct Wide {
  std::uint64_t high;
  std::uint64_t low;
};

// From the halves of both, as on paper.
constexpr Wide MultiplyByHalves(std::uint64_t a, std::uint64_t b) {
  constexpr std::uint64_t kHalf = 0xFFFFFFFF;
  const std::uint64_t low = (a & kHalf) * (b & kHalf);
  const std::uint64_t middle = (a >> 32) * (b & kHalf) + (low >> 32);
  const std::uint64_t other = (a & kHalf) * (b >> 32) + (middle & kHalf);
  return {(a >> 32) * (b >> 32) + (middle >> 32) + (other >> 32), other << 32 | (low & kHalf)};
}

constexpr Wide Multiply(std::uint64_t a, std::uint64_t b) {
#if defined(__SIZEOF_INT128__)
  __extension__ using Product = unsigned __int128;
  const Product product = Product{a} * b;
  return {static_cast<std::uint64_t>(product >> 64), static_cast<std::uint64_t>(product)};
#else
  return MultiplyByHalves(a, b);
#endif
}

// Is this bit set, counted from the lowest, 0?
constexpr bool HasBit(const Wide& wide, int bit) {
  return bit < 64 ? (wide.low >> bit & 1) != 0 : (wide.high >> (bit - 64) & 1) != 0;
}

// Is a bit below this one set?  REQUIRES: 0 <= bit < 128.
constexpr bool HasBitBelow(const Wide& wide, int bit) {
  if (bit < 64) return (wide.low & ((std::uint64_t{1} << bit) - 1)) != 0;
  return wide.low != 0 || (wide.high & ((std::uint64_t{1} << (bit & 63)) - 1)) != 0;
}

// The lowest 64 bits of what stays.  REQUIRES: 0 < bits < 128.
constexpr std::uint64_t ShiftRight(const Wide& wide, int bits) {
  if (bits >= 64) return wide.high >> (bits - 64);
  return wide.high << (64 - bits) | wide.low >> bits;
}

}  // namespace Quarn

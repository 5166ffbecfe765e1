// Tests of products of 128 bits: worked out by hand, and in two ways.
#include "utils/wide.h"

#include <gtest/gtest.h>

#include <random>

namespace Quarn {
namespace {

constexpr std::uint64_t kAll = 0xFFFFFFFFFFFFFFFF;

TEST(Wide, ProductsAreWhole) {
  const struct {
    std::uint64_t a, b, high, low;
  } kRows[] = {
      {0,                  kAll,               0,                  0                 },
      {1,                  kAll,               0,                  kAll              },
      {2,                  kAll,               1,                  kAll - 1          },
      {kAll,               kAll,               kAll - 1,           1                 },
      {0x100000000,        0x100000000,        1,                  0                 },
      {0x8000000000000001, 0x8000000000000001, 0x4000000000000001, 1                 },
      {0x123456789ABCDEF0, 0x10,               1,                  0x23456789ABCDEF00},
  };
  for (const auto& row : kRows) {
    for (const Wide& product : {MultiplyByHalves(row.a, row.b), Multiply(row.b, row.a)}) {
      EXPECT_EQ(product.high, row.high) << row.a << " * " << row.b;
      EXPECT_EQ(product.low, row.low) << row.a << " * " << row.b;
    }
  }
}

TEST(Wide, BothWaysToMultiplyAgree) {
  std::mt19937_64 random(1);
  for (int i = 0; i < 10000; ++i) {
    const std::uint64_t a = random() >> random() % 64;
    const std::uint64_t b = random() >> random() % 64;
    const Wide one = Multiply(a, b);
    const Wide other = MultiplyByHalves(a, b);
    ASSERT_EQ(one.high, other.high) << a << " * " << b;
    ASSERT_EQ(one.low, other.low) << a << " * " << b;
  }
}

TEST(Wide, IsTakenApartOnBothSidesOfTheMiddle) {
  constexpr Wide kWide = {0b101, std::uint64_t{1} << 63};
  EXPECT_EQ(ShiftRight(kWide, 63), 0b1011U);
  EXPECT_EQ(ShiftRight(kWide, 64), 0b101U);
  EXPECT_EQ(ShiftRight(kWide, 65), 0b10U);
  EXPECT_EQ(ShiftRight(kWide, 1), (std::uint64_t{1} << 62) | (std::uint64_t{1} << 63));
  EXPECT_FALSE(HasBit(kWide, 62));
  EXPECT_TRUE(HasBit(kWide, 63));
  EXPECT_TRUE(HasBit(kWide, 64));
  EXPECT_FALSE(HasBit(kWide, 65));
  EXPECT_FALSE(HasBitBelow(kWide, 63));
  EXPECT_TRUE(HasBitBelow(kWide, 64));
  EXPECT_TRUE(HasBitBelow(kWide, 65));
  EXPECT_FALSE(HasBitBelow({1, 0}, 64));
  EXPECT_TRUE(HasBitBelow({1, 0}, 65));
}

}  // namespace
}  // namespace Quarn

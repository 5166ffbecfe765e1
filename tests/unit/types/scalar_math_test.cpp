// Tests of the arithmetic of plain numbers: factorial, lesser and greater, rounding, random
// numbers.
#include "types/scalar_math.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <limits>

namespace Quarn {
namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();

TEST(Factorial, MultipliesRoundedNumbersDownToAboutOne) {
  const struct {
    double x, factorial;
  } kRows[] = {
      {1,    1                    },
      {1.05, 1                    },
      {0.95, 1                    },
      {0.91, 1                    },
      {2,    2                    },
      {2.05, 2                    },
      {3.95, 24                   }, // 4 * 3 * 2 * 1
      {4,    24                   },
      {5,    120                  },
      {10,   3628800              },
      {20,   2432902008176640000.0},
      {171,  kInfinity            },
  };
  for (const auto& row : kRows) EXPECT_EQ(Factorial(row.x), row.factorial) << row.x;
}

// There is no second end, and none is wanted.
TEST(FactorialDeathTest, RecursesUntilTheStackIsUsedUp) {
  GTEST_FLAG_SET(death_test_style, "threadsafe");
  for (double x : {0.0, -1.0, 0.5, 2.5, 1.5, kNaN, kInfinity, -kInfinity}) {
    EXPECT_DEATH(Factorial(x), "") << x;
  }
}

TEST(Factorial, IsKnownToBeShortWhenItSurelyEnds) {
  for (double x : {1.0, 1.05, 0.95, 3.95, 5.0, 170.0}) EXPECT_TRUE(IsFactorialShort(x)) << x;
  for (double x : {0.0, -1.0, 0.5, 0.85, 2.5, 1.2, 2000.0, 1e300, kNaN, kInfinity, -kInfinity}) {
    EXPECT_FALSE(IsFactorialShort(x)) << x;
  }
}

TEST(MinAndMax, GiveTheSecondOfTwoEquals) {
  EXPECT_TRUE(std::signbit(Min(0.0, -0.0)));
  EXPECT_FALSE(std::signbit(Min(-0.0, 0.0)));
  EXPECT_TRUE(std::signbit(Max(0.0, -0.0)));
  EXPECT_FALSE(std::signbit(Max(-0.0, 0.0)));
}

TEST(MinAndMax, GiveTheLesserAndTheGreater) {
  for (const auto& [low, high] : {
           std::pair(1.0, 2.0), {-kInfinity, 5.0      },
             {-1e300,     kInfinity}
  }) {
    EXPECT_EQ(Min(low, high), low);
    EXPECT_EQ(Min(high, low), low);
    EXPECT_EQ(Max(low, high), high);
    EXPECT_EQ(Max(high, low), high);
  }
}

TEST(MinAndMax, GiveTheFirstWhenEitherIsNotANumber) {
  EXPECT_EQ(Min(1, kNaN), 1);
  EXPECT_EQ(Max(1, kNaN), 1);
  EXPECT_TRUE(std::isnan(Min(kNaN, 1)));
  EXPECT_TRUE(std::isnan(Max(kNaN, 1)));
}

TEST(Rounding, TakesHalvesAwayFromZero) {
  const struct {
    double x, nearest, up, down;
  } kRows[] = {
      {2.5,       3,         3,         2        },
      {-2.5,      -3,        -2,        -3       },
      {-1.5,      -2,        -1,        -2       },
      {0.49,      0,         1,         0        },
      {2,         2,         2,         2        },
      {1e300,     1e300,     1e300,     1e300    },
      {kInfinity, kInfinity, kInfinity, kInfinity},
  };
  for (const auto& row : kRows) {
    EXPECT_EQ(Round(row.x), row.nearest) << row.x;
    EXPECT_EQ(RoundUp(row.x), row.up) << row.x;
    EXPECT_EQ(RoundDown(row.x), row.down) << row.x;
  }
  EXPECT_TRUE(std::isnan(Round(kNaN)));
}

class Rand : public testing::Test {
 protected:
  static constexpr unsigned int kSeed = 7;

  Rand() { std::srand(kSeed); }
  ~Rand() override { std::srand(1); }  // as the library begins

  // What the C library draws next from the seed on.
  static double FirstDraw() {
    std::srand(kSeed);
    const double draw = std::rand();
    std::srand(kSeed);
    return draw;
  }
};

TEST_F(Rand, LaysTheDrawBetweenItsBounds) {
  const double share = FirstDraw() / 2147483647.0;
  EXPECT_EQ(RandUnit(), share);
  std::srand(kSeed);
  EXPECT_EQ(RandBetween(2, 6), 2 + share * 4);
  std::srand(kSeed);
  EXPECT_EQ(RandBetween(-1, 0), -1 + share);
}

TEST_F(Rand, StaysBetweenItsBounds) {
  for (int i = 0; i < 1000; ++i) {
    const double number = RandBetween(-3, 5);
    ASSERT_GE(number, -3);
    ASSERT_LE(number, 5);
  }
}

TEST_F(Rand, GivesTheLowerBoundWhenItIsAboveTheUpper) {
  EXPECT_EQ(RandBetween(5, 1), 5);
  EXPECT_EQ(RandBetween(3, 3), 3);
}

TEST_F(Rand, IsNotANumberWithoutFiniteBounds) {
  for (double bound : {kNaN, kInfinity, -kInfinity}) {
    EXPECT_TRUE(std::isnan(RandBetween(bound, 1))) << bound;
    EXPECT_TRUE(std::isnan(RandBetween(0, bound))) << bound;
  }
}

TEST_F(Rand, DrawsOnlyIfItNeedsTo) {
  const double draw = FirstDraw();
  RandBetween(5, 1);
  RandBetween(kNaN, 1);
  RandBetween(0, kInfinity);
  EXPECT_EQ(std::rand(), draw);
}

}  // namespace
}  // namespace Quarn

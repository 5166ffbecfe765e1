// Tests of s_double_t: the classes of number, arithmetic and comparisons, and the way to s_uint_t.
#include "utils/s_double.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>
#include <type_traits>

namespace Quarn {
namespace {

constexpr double kInf = std::numeric_limits<double>::infinity();
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

std::string Dump(s_uint value) {
  if (value.IsNaN()) return "NaN";
  return value.IsValid() ? std::to_string(value.Get()) : "INF";
}

TEST(SDouble, IsZeroUntilItIsGivenAValue) {
  EXPECT_EQ(s_double().Get(), 0.0);
  EXPECT_EQ(s_double(0.1).Get(), 0.1);
}

TEST(SDouble, TellsItsClass) {
  const struct {
    double value;
    int number;
  } kRows[] = {
      {0.0,                                       0},
      {-0.0,                                      0},
      {1.5,                                       0},
      {-1.5,                                      0},
      {std::numeric_limits<double>::max(),        0},
      {std::numeric_limits<double>::denorm_min(), 0},
      {kInf,                                      1},
      {-kInf,                                     2},
      {kNaN,                                      3},
      {-kNaN,                                     3}, // the sign of a NaN says nothing
  };
  for (const auto& row : kRows) {
    const s_double value = row.value;
    EXPECT_EQ(static_cast<int>(value.Classify()), row.number) << row.value;
    EXPECT_EQ(bool(value.IsFinite()), row.number == 0) << row.value;
    EXPECT_EQ(bool(value.IsNaN()), row.number == 3) << row.value;
  }
  EXPECT_TRUE(s_double::NaN().IsNaN());
}

TEST(SDouble, CalculatesAsTheIeeeNumbers) {
  const s_double a = 7.0, b = 2.0;
  EXPECT_EQ((a + b).Get(), 9.0);
  EXPECT_EQ((a - b).Get(), 5.0);
  EXPECT_EQ((a * b).Get(), 14.0);
  EXPECT_EQ((a / b).Get(), 3.5);
  EXPECT_EQ((-a).Get(), -7.0);
  EXPECT_EQ((a / 0.0).Get(), kInf);
  EXPECT_EQ((-a / 0.0).Get(), -kInf);
  EXPECT_TRUE((s_double(0.0) / 0.0).IsNaN());
  EXPECT_TRUE(std::signbit((-s_double(0.0)).Get()));

  s_double value = 1.0;
  value += 5.0;
  value *= 3.0;
  value -= 2.0;
  value /= 4.0;
  EXPECT_EQ(value.Get(), 4.0);
}

// The six comparisons that hold, in the order < <= == >= > !=.
std::string Compare(s_double a, s_double b) {
  std::string holds;
  if (a < b) holds += "< ";
  if (a <= b) holds += "<= ";
  if (a == b) holds += "== ";
  if (a >= b) holds += ">= ";
  if (a > b) holds += "> ";
  if (a != b) holds += "!= ";
  return holds;
}

TEST(SDouble, ComparesAsTheIeeeNumbers) {
  const struct {
    double a, b;
    const char* holds;
  } kRows[] = {
      {1,     2,    "< <= != " },
      {2,     2,    "<= == >= "},
      {2,     1,    ">= > != " },
      {0.0,   -0.0, "<= == >= "},
      {-kInf, kInf, "< <= != " },
      {kInf,  kInf, "<= == >= "},
      {kNaN,  1,    "!= "      },
      {1,     kNaN, "!= "      },
      {kNaN,  kNaN, "!= "      },
  };
  for (const auto& row : kRows) {
    EXPECT_EQ(Compare(row.a, row.b), row.holds) << row.a << " and " << row.b;
  }
  static_assert(std::is_same_v<decltype(s_double() < s_double()), s_bool>);
}

TEST(SDouble, FloorGoesDown) {
  const struct {
    double value, floor;
  } kRows[] = {
      {2.0,   2.0  },
      {2.9,   2.0  },
      {0.49,  0.0  },
      {-0.1,  -1.0 },
      {-2.0,  -2.0 },
      {1e300, 1e300},
      {kInf,  kInf },
  };
  for (const auto& row : kRows) EXPECT_EQ(s_double(row.value).Floor().Get(), row.floor);
}

TEST(SDouble, ToUintRoundsHalvesAwayFromZero) {
  const struct {
    double value;
    const char* result;
  } kRows[] = {
      {0.0,                 "0"         },
      {-0.0,                "0"         }, // not below 0
      {0.49,                "0"         },
      {0.49999999999999994, "0"         }, // adding a half first would give 1
      {0.5,                 "1"         },
      {1.5,                 "2"         },
      {2.5,                 "3"         },
      {2.4999999999999996,  "2"         },
      {4294967295.0,        "4294967295"},
      {4294967296.0,        "0"         }, // stored in 32 bits
      {4294967298.5,        "3"         },
  };
  for (const auto& row : kRows) EXPECT_EQ(Dump(s_double(row.value).ToUint()), row.result);
}

TEST(SDouble, ToUintHasNoPlaceForTheOthers) {
  const struct {
    double value;
    const char* result;
  } kRows[] = {
      {kNaN,    "NaN"},
      {kInf,    "INF"},
      {-kInf,   "INF"},
      {-0.5,    "INF"},
      {-1e-300, "INF"},
      {-3.0,    "INF"},
  };
  for (const auto& row : kRows) EXPECT_EQ(Dump(s_double(row.value).ToUint()), row.result);
}

TEST(SDouble, FloorFirstGivesTheIntegerPart) {
  EXPECT_EQ(Dump(s_double(2.9).Floor().ToUint()), "2");
}

TEST(SDouble, SinglePrecisionHasTheSameRules) {
  EXPECT_EQ(Dump(s_float(2.5F).ToUint()), "3");
  EXPECT_EQ(Dump(s_float(-2.5F).ToUint()), "INF");
  EXPECT_EQ(s_float(-0.5F).Floor().Get(), -1.0F);
  EXPECT_TRUE(s_float::NaN().IsNaN());
  EXPECT_EQ((s_float(1.0F) / 3.0F).Get(), 1.0F / 3.0F);
}

}  // namespace
}  // namespace Quarn

// Tests of s_int_t: the value with its state, and how the states go through sums and comparisons.
#include "utils/s_int.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <type_traits>

namespace Quarn {
namespace {

template <class T>
std::string Dump(s_int_t<T> value) {
  switch (value.GetState()) {
    case s_int_t<T>::State::kNumber:
      return std::to_string(value.Get());
    case s_int_t<T>::State::kInfinite:
      return "INF";
    case s_int_t<T>::State::kNaN:
      return "NaN";
  }
  return "?";
}

const s_uint kNaN = s_uint::NaN;
const s_uint kInf = s_uint::INF;

// An object made before main that reads the constants: it must find them made.
const s_uint nan_before_main = s_uint::NaN;
const s_int inf_before_main = s_int::INF;

TEST(SInt, IsZeroUntilItIsGivenAValue) {
  EXPECT_EQ(Dump(s_uint()), "0");
  EXPECT_EQ(Dump(s_uint(7U)), "7");
  EXPECT_EQ(Dump(s_uint(4294967295U)), "4294967295");
}

TEST(SInt, StatesAreNumberedZeroOneTwo) {
  static_assert(static_cast<unsigned int>(s_uint(7U).GetState()) == 0);
  EXPECT_EQ(static_cast<unsigned int>(kInf.GetState()), 1U);
  EXPECT_EQ(static_cast<unsigned int>(kNaN.GetState()), 2U);
  EXPECT_EQ(kInf.Get(), 0U);
  EXPECT_EQ(kNaN.Get(), 0U);
}

TEST(SInt, ConstantsAreThereBeforeMain) {
  EXPECT_TRUE(nan_before_main.IsNaN());
  EXPECT_EQ(Dump(inf_before_main), "INF");
}

TEST(SInt, TellsItsState) {
  const struct {
    s_uint value;
    bool is_valid, is_nan, is_null;
  } kRows[] = {
      {0U,   true,  false, true },
      {1U,   true,  false, false},
      {kInf, false, false, false}, // its value is 0, and yet it is not null
      {kNaN, false, true,  false},
  };
  for (const auto& row : kRows) {
    SCOPED_TRACE(Dump(row.value));
    EXPECT_EQ(bool(row.value.IsValid()), row.is_valid);
    EXPECT_EQ(bool(row.value.IsNaN()), row.is_nan);
    EXPECT_EQ(bool(row.value.IsNull()), row.is_null);
  }
}

TEST(SInt, SumsAndDifferencesCarryTheState) {
  const struct {
    s_uint a, b;
    const char *sum, *difference;
  } kRows[] = {
      {5U,          3U,   "8",   "2"         },
      {3U,          5U,   "8",   "4294967294"}, // no check that b is the smaller one
      {4294967295U, 2U,   "1",   "4294967293"},
      {0U,          0U,   "0",   "0"         },
      {3U,          kInf, "INF", "INF"       },
      {kInf,        3U,   "INF", "INF"       },
      {kInf,        kInf, "INF", "INF"       },
      {kNaN,        3U,   "NaN", "NaN"       },
      {3U,          kNaN, "NaN", "NaN"       },
      {kNaN,        kInf, "NaN", "NaN"       },
      {kInf,        kNaN, "NaN", "NaN"       },
      {kNaN,        kNaN, "NaN", "NaN"       },
  };
  for (const auto& row : kRows) {
    SCOPED_TRACE(Dump(row.a) + " and " + Dump(row.b));
    EXPECT_EQ(Dump(row.a + row.b), row.sum);
    EXPECT_EQ(Dump(row.a - row.b), row.difference);
    s_uint added = row.a, taken = row.a;
    added += row.b;
    taken -= row.b;
    EXPECT_EQ(Dump(added), row.sum);
    EXPECT_EQ(Dump(taken), row.difference);
  }
}

// The six comparisons that hold, in the order < <= == >= > !=.
std::string Compare(s_uint a, s_uint b) {
  std::string holds;
  if (a < b) holds += "< ";
  if (a <= b) holds += "<= ";
  if (a == b) holds += "== ";
  if (a >= b) holds += ">= ";
  if (a > b) holds += "> ";
  if (a != b) holds += "!= ";
  return holds;
}

TEST(SInt, ComparesByValueWithInfAboveAllAndNaNBesideAll) {
  const struct {
    s_uint a, b;
    const char* holds;
  } kRows[] = {
      {1U,   2U,          "< <= != " },
      {2U,   2U,          "<= == >= "},
      {2U,   1U,          ">= > != " },
      {1U,   4294967295U, "< <= != " }, // unsigned: the largest value is no -1
      {1U,   kInf,        "< <= != " },
      {0U,   kInf,        "< <= != " },
      {kInf, kInf,        "<= == >= "},
      {kInf, 1U,          ">= > != " },
      {kNaN, 1U,          "!= "      },
      {1U,   kNaN,        "!= "      },
      {kNaN, kInf,        "!= "      },
      {kInf, kNaN,        "!= "      },
      {kNaN, kNaN,        "!= "      },
  };
  for (const auto& row : kRows) {
    EXPECT_EQ(Compare(row.a, row.b), row.holds) << Dump(row.a) << " and " << Dump(row.b);
  }
}

template <class T>
class SIntOfWidth : public testing::Test {};
using Widths = testing::Types<short, unsigned short, int, unsigned int, long, unsigned long>;
TYPED_TEST_SUITE(SIntOfWidth, Widths);

TYPED_TEST(SIntOfWidth, HasTheSameStatesAndRules) {
  using Int = s_int_t<TypeParam>;
  const Int one = TypeParam{1};
  EXPECT_EQ(Dump(Int::NaN), "NaN");
  EXPECT_EQ(Dump(Int::INF), "INF");
  EXPECT_EQ(Dump(one + one), "2");
  EXPECT_EQ(Dump(one - Int::INF), "INF");
  EXPECT_EQ(Dump(Int::NaN + Int::INF), "NaN");
  EXPECT_TRUE(one < Int::INF);
  EXPECT_FALSE(Int::NaN <= Int::NaN);
}

TYPED_TEST(SIntOfWidth, WrapsAtItsOwnWidth) {
  using Limits = std::numeric_limits<TypeParam>;
  using Int = s_int_t<TypeParam>;
  const Int one = TypeParam{1};
  EXPECT_EQ(Dump(Int(Limits::max()) + one), std::to_string(Limits::min()));
  EXPECT_EQ(Dump(Int(Limits::min()) - one), std::to_string(Limits::max()));
}

TEST(SInt, SignedValuesCompareBelowZero) {
  EXPECT_TRUE(s_int(-1) < s_int(0));
  EXPECT_TRUE(s_int(-1) < s_int::INF);
  EXPECT_EQ(Dump(s_int(3) - s_int(5)), "-2");
}

TEST(SInt, IsMadeFromItsOwnIntegerAlone) {
  static_assert(std::is_convertible_v<unsigned int, s_uint>);
  static_assert(std::is_convertible_v<int, s_int>);
  static_assert(std::is_convertible_v<unsigned long, s_ulong>);
  static_assert(!std::is_constructible_v<s_uint, int>);  // s_uint u = -1
  static_assert(!std::is_constructible_v<s_uint, long>);
  static_assert(!std::is_constructible_v<s_uint, unsigned long>);
  static_assert(!std::is_constructible_v<s_uint, char>);
  static_assert(!std::is_constructible_v<s_int, unsigned int>);
  static_assert(!std::is_constructible_v<s_int, s_uint>);
  static_assert(!std::is_assignable_v<s_uint&, int>);
}

TEST(SInt, IsNotMadeFromAFraction) {
  static_assert(!std::is_constructible_v<s_uint, double>);  // s_uint u = 2.7
  static_assert(!std::is_constructible_v<s_uint, float>);
  static_assert(!std::is_constructible_v<s_int, double>);
  static_assert(!std::is_assignable_v<s_uint&, double>);
}

TEST(SInt, IsNotMadeFromATruthValueOrText) {
  static_assert(!std::is_constructible_v<s_uint, bool>);  // s_uint u = true
  static_assert(!std::is_constructible_v<s_int, bool>);
  static_assert(!std::is_constructible_v<s_uint, s_bool>);
  static_assert(!std::is_constructible_v<s_uint, const char*>);
  static_assert(!std::is_convertible_v<s_uint, unsigned int>);
  static_assert(!std::is_convertible_v<s_uint, bool>);
}

}  // namespace
}  // namespace Quarn

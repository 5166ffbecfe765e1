// Tests of s_bool_t: it stands where a test value stands, and never becomes a number.
#include "utils/s_bool.h"

#include <gtest/gtest.h>

#include <type_traits>

namespace Quarn {
namespace {

constexpr s_bool kTrue = true;
constexpr s_bool kFalse = false;

TEST(SBool, IsFalseUntilItIsGivenAValue) { EXPECT_FALSE(s_bool()); }

TEST(SBool, StandsInATest) {
  int taken = 0;
  if (kTrue) taken += 1;
  if (kFalse) taken += 2;
  for (s_bool again = true; again; again = false) taken += 4;
  EXPECT_EQ(taken, 5);
  EXPECT_EQ(kTrue ? 1 : 2, 1);
  EXPECT_EQ(kFalse ? 1 : 2, 2);
  EXPECT_TRUE(kTrue && !kFalse);
  EXPECT_TRUE(kFalse || kTrue);
}

TEST(SBool, ConvertsToAPointerThatIsNullWhenFalse) {
  const s_bool::Test when_true = kTrue;
  const s_bool::Test when_false = kFalse;
  EXPECT_NE(when_true, nullptr);
  EXPECT_EQ(when_false, nullptr);
  when_true();  // nobody has a reason to call it, and it does no harm
}

TEST(SBool, NegationIsAPlainBool) {
  static_assert(std::is_same_v<decltype(!kTrue), bool>);
  EXPECT_FALSE(!kTrue);
  EXPECT_TRUE(!kFalse);
}

TEST(SBool, IsUsableInConstantExpressions) {
  static_assert(!!kTrue);
  static_assert(!kFalse);
}

template <class T>
concept Adds = requires(T a, int b) {
  a + b;
};
template <class T>
concept Multiplies = requires(T a, int b) {
  a* b;
};
template <class T>
concept ComparesWithNumbers = requires(T a, int b) {
  a < b;
};
template <class T>
concept Less = requires(T a, T b) {
  a < b;
};
template <class T>
concept LessOrEqual = requires(T a, T b) {
  a <= b;
};
template <class T>
concept Greater = requires(T a, T b) {
  a > b;
};
template <class T>
concept GreaterOrEqual = requires(T a, T b) {
  a >= b;
};
template <class T>
concept Increments = requires(T a) {
  ++a;
};

TEST(SBool, IsMadeFromABoolAlone) {
  static_assert(std::is_convertible_v<bool, s_bool>);
  static_assert(!std::is_convertible_v<int, s_bool>);
  static_assert(!std::is_constructible_v<s_bool, int>);
  static_assert(!std::is_constructible_v<s_bool, unsigned int>);
  static_assert(!std::is_constructible_v<s_bool, double>);
  static_assert(!std::is_constructible_v<s_bool, const char*>);
  static_assert(!std::is_constructible_v<s_bool, std::nullptr_t>);
}

TEST(SBool, NeverBecomesANumber) {
  static_assert(std::is_convertible_v<s_bool, bool>);
  static_assert(!std::is_convertible_v<s_bool, int>);
  static_assert(!std::is_convertible_v<s_bool, unsigned int>);
  static_assert(!std::is_convertible_v<s_bool, char>);
  static_assert(!std::is_convertible_v<s_bool, double>);
}

TEST(SBool, HasNoArithmetic) {
  static_assert(Adds<bool> && !Adds<s_bool>);
  static_assert(Multiplies<bool> && !Multiplies<s_bool>);
  static_assert(ComparesWithNumbers<bool> && !ComparesWithNumbers<s_bool>);
  static_assert(Increments<int> && !Increments<s_bool>);
}

TEST(SBool, HasNoOrder) {
  static_assert(Less<bool> && !Less<s_bool>);
  static_assert(LessOrEqual<bool> && !LessOrEqual<s_bool>);
  static_assert(Greater<bool> && !Greater<s_bool>);
  static_assert(GreaterOrEqual<bool> && !GreaterOrEqual<s_bool>);
}

TEST(SBool, IsEqualToTheSameTruthValue) {
  EXPECT_TRUE(kTrue == s_bool(true));
  EXPECT_TRUE(kFalse == s_bool(false));
  EXPECT_FALSE(kTrue == kFalse);
  EXPECT_TRUE(kTrue != kFalse);
}

}  // namespace
}  // namespace Quarn

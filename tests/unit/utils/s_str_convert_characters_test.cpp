// Tests of the conversions for texts of either character type.
#include <gtest/gtest.h>

#include <limits>

#include "utils/s_str_convert.h"

namespace Quarn {
namespace {

constexpr double kInf = std::numeric_limits<double>::infinity();

template <class T>
class SStrConvertOf : public testing::Test {};
using Characters = testing::Types<char, unsigned int>;
TYPED_TEST_SUITE(SStrConvertOf, Characters);

TYPED_TEST(SStrConvertOf, WritesNumbersAndBooleans) {
  using Str = s_str_t<TypeParam>;
  const struct {
    Str text;
    const char* expected;
  } kRows[] = {
      {ToText<TypeParam>(s_double(-0.5)),        "-0.5"      },
      {ToText<TypeParam>(s_double(1e20)),        "1e+20"     },
      {ToText<TypeParam>(s_double::NaN()),       "nan"       },
      {ToText<TypeParam>(s_double(-kInf)),       "inf-"      },
      {ToText<TypeParam>(s_float(1.0F / 3.0F)),  "0.333333"  },
      {ToText<TypeParam>(s_uint(42U)),           "42"        },
      {ToText<TypeParam>(s_uint::INF),           "inf"       },
      {ToText<TypeParam>(s_ulong(4294967295UL)), "4294967295"},
      {ToText<TypeParam>(s_int(-7)),             "-7"        },
      {ToText<TypeParam>(s_int::NaN),            "nan"       },
      {ToText<TypeParam>(s_bool(true)),          "true"      },
      {ToText<TypeParam>(s_bool(false)),         "false"     },
  };
  for (const auto& row : kRows) EXPECT_TRUE(row.text == Str(row.expected)) << row.expected;
}

TYPED_TEST(SStrConvertOf, ReadsNumbersAndBooleans) {
  using Str = s_str_t<TypeParam>;
  EXPECT_EQ(ToDouble(Str(" -0.5x")).Get(), -0.5);
  EXPECT_EQ(ToDouble(Str("x")).Get(), 0.0);
  EXPECT_EQ(ToFloat(Str("0.1")).Get(), 0.1F);
  EXPECT_EQ(ToUint(Str("12abc")).Get(), 12U);
  EXPECT_EQ(ToUint(Str("-1")).Get(), 4294967295U);
  EXPECT_EQ(ToUlong(Str("4294967295")).Get(), 4294967295UL);
  EXPECT_EQ(ToInt(Str("-12abc")).Get(), -12);
  EXPECT_TRUE(ToBool(Str("yes")));
  EXPECT_FALSE(ToBool(Str("no")));
  EXPECT_FALSE(ToBool(Str("Yes")));
}

// What fits no byte ends a number, whatever its low byte would be.
TEST(SStrConvert, ACharacterBeyondAByteIsNoDigit) {
  const s_ustr text(s_ustr::String{'1', 0x132U, 0x1F632U});
  EXPECT_EQ(ToDouble(text).Get(), 1.0);
  EXPECT_EQ(ToUint(text).Get(), 1U);
  EXPECT_EQ(ToInt(s_ustr(s_ustr::String{0x131U})).Get(), 0);
  EXPECT_FALSE(ToBool(s_ustr(s_ustr::String{0x131U})));  // "1" is a word
}

TEST(SStrConvert, WidensAndNarrowsByteByByte) {
  const s_ustr wide = Widen("a\xFF");
  EXPECT_TRUE(wide.Get() == (s_ustr::String{'a', 0xFFU}));
  EXPECT_EQ(Narrow(wide).Get(), "a\xFF");
  EXPECT_EQ(Narrow(s_ustr(s_ustr::String{'a', 0x100U, 0x1F600U})).Get(), "a??");
  EXPECT_EQ(Narrow(s_str("abc")).Get(), "abc");
}

}  // namespace
}  // namespace Quarn

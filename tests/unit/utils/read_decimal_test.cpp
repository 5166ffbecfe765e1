// Tests of ReadDecimal: by hand at the edges, and beside the standard library's way where it has
// one.
#include "utils/read_decimal.h"

#include <gtest/gtest.h>

#include <bit>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <limits>
#include <random>
#include <string>

namespace Quarn {
namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();

TEST(ReadDecimal, ReadsEachForm) {
  const struct {
    const char* text;
    double number;
  } kRows[] = {
      {"0",       0   },
      {"12",      12  },
      {"-3.5",    -3.5},
      {".5",      0.5 },
      {"5.",      5   },
      {"2e3",     2000},
      {"2E+3",    2000},
      {"25e-2",   0.25},
      {"0.00e99", 0   },
      {"000010",  10  },
  };
  for (const auto& row : kRows) EXPECT_EQ(ReadDecimal<double>(row.text), row.number) << row.text;
  EXPECT_TRUE(std::signbit(ReadDecimal<double>("-0")));
}

TEST(ReadDecimal, RoundsToTheNearestAndTiesToEven) {
  const struct {
    const char* text;
    double number;
  } kRows[] = {
  // 2^53 + 1 lies between two doubles.
      {"9007199254740993",                                 9007199254740992.0     },
      {"9007199254740993.0000000000000000000000000000001", 9007199254740994.0     },
      {"9007199254740995",                                 9007199254740996.0     },
      {"0.1",                                              0x1.999999999999ap-4   },
      {"1e23",                                             0x1.52d02c7e14af6p+76  },
 // The largest double, and half a step above it.
      {"1.7976931348623157e308",                           0x1.fffffffffffffp1023 },
      {"1.7976931348623158e308",                           0x1.fffffffffffffp1023 },
      {"1.797693134862315807e308",                         0x1.fffffffffffffp1023 },
      {"1.797693134862315808e308",                         kInfinity              },
 // The smallest one above 0, and half of it.
      {"4.9406564584124654e-324",                          0x1p-1074              },
      {"2.4703282292062328e-324",                          0x1p-1074              },
      {"2.4703282292062327e-324",                          0                      },
 // The smallest normal number, and the largest below it.
      {"2.2250738585072014e-308",                          0x1p-1022              },
      {"2.2250738585072011e-308",                          0x0.fffffffffffffp-1022},
  };
  for (const auto& row : kRows) EXPECT_EQ(ReadDecimal<double>(row.text), row.number) << row.text;
}

TEST(ReadDecimal, TooLargeIsInfiniteAndTooSmallIsZero) {
  for (const char* text : {"1e400", "1e309", "1e999999999999999999999", "10e308"}) {
    EXPECT_EQ(ReadDecimal<double>(text), kInfinity) << text;
    EXPECT_EQ(ReadDecimal<double>("-" + std::string(text)), -kInfinity) << text;
  }
  for (const char* text : {"1e-400", "1e-999999999999999999999", "0.1e-330", "2e-324"}) {
    EXPECT_EQ(ReadDecimal<double>(text), 0) << text;
    EXPECT_TRUE(std::signbit(ReadDecimal<double>("-" + std::string(text)))) << text;
  }
  EXPECT_EQ(ReadDecimal<float>("1e39"), std::numeric_limits<float>::infinity());
  EXPECT_EQ(ReadDecimal<float>("1e-46"), 0);
}

TEST(ReadDecimal, DigitsBeyondAllThatCountDecideTies) {
  const std::string zeros(2000, '0');
  EXPECT_EQ(ReadDecimal<double>("9007199254740993." + zeros), 9007199254740992.0);
  EXPECT_EQ(ReadDecimal<double>("9007199254740993." + zeros + "1"), 9007199254740994.0);
  EXPECT_EQ(ReadDecimal<double>("0." + zeros + "1e2001"), 1);
  EXPECT_EQ(ReadDecimal<double>("1" + zeros + "e-2000"), 1);
  EXPECT_EQ(ReadDecimal<double>("1" + zeros + "7e-2001"), 1);
}

TEST(ReadDecimal, AFloatIsRoundedOnce) {
  // By way of a double it would become the tie 1 + 2^-24, and that the even number 1.
  EXPECT_EQ(ReadDecimal<float>("1.00000005960464477539062500000000001"), 0x1.000002p0F);
  EXPECT_EQ(ReadDecimal<float>("1.000000059604644775390625"), 1.0F);
}

#if defined(__cpp_lib_to_chars)

std::string Print(const char* format, int digits, double number) {
  std::string text(1200, ' ');
  const int size = std::snprintf(text.data(), text.size(), format, digits, number);
  text.resize(static_cast<std::size_t>(size));
  return text;
}

template <class T>
void ExpectAsTheLibrary(const std::string& text) {
  T number = 0;
  const auto [end, problem] = std::from_chars(text.data(), text.data() + text.size(), number);
  const T read = ReadDecimal<T>(text);
  if (problem == std::errc::result_out_of_range) {
    EXPECT_TRUE(read == 0 || std::isinf(read)) << text;
  } else {
    EXPECT_EQ(read, number) << text;
  }
}

TEST(ReadDecimal, ReadsAnyNumberAsTheLibraryDoes) {
  std::mt19937_64 random(1);
  for (int i = 0; i < 3000; ++i) {
    const auto number = std::bit_cast<double>(random());
    if (!std::isfinite(number)) continue;
    for (const int digits : {1, 8, 15, 16, 17, 40}) {
      ExpectAsTheLibrary<double>(Print("%.*g", digits, number));
      ExpectAsTheLibrary<float>(Print("%.*g", digits, number));
    }
    const auto small =
        static_cast<double>(std::bit_cast<float>(static_cast<std::uint32_t>(random())));
    if (std::isfinite(small)) ExpectAsTheLibrary<float>(Print("%.*g", 9, small));
  }
}

TEST(ReadDecimal, ReadsTiesAsTheLibraryDoes) {
  std::mt19937_64 random(2);
  for (int i = 0; i < 500; ++i) {
    const auto number = std::bit_cast<double>(random() >> 1);
    if (!std::isfinite(number) || number > 1e300) continue;
    // Half of the way to the next one, all digits of it: the sum of the two halves is exact but for
    // the smallest numbers.
    const double next = std::nextafter(number, kInfinity);
    const long double middle = (static_cast<long double>(number) + next) / 2;
    std::string text(2400, ' ');
    text.resize(
        static_cast<std::size_t>(std::snprintf(text.data(), text.size(), "%.1100Lg", middle)));
    ExpectAsTheLibrary<double>(text);
  }
}

#endif

}  // namespace
}  // namespace Quarn

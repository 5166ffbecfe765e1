// Floating numbers written with a precision: by printf the same as by the standard library.
#include "utils/write_real.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>
#include <limits>
#include <random>
#include <string>

namespace Quarn {
namespace {

constexpr std::size_t kRoom = 800;

std::string Write(double value, std::chars_format format, int digits) {
  char room[kRoom];
  return {room, WriteReal(room, room + kRoom, value, format, digits)};
}
std::string Print(double value, std::chars_format format, int digits) {
  char room[kRoom];
  return {room, PrintReal(room, room + kRoom, value, format, digits)};
}

TEST(WriteReal, HasTheDigitsThatAreAskedFor) {
  const struct {
    double value;
    int digits;
    const char* text;
  } kRows[] = {
      {0,                                         15, "0"                    },
      {-0.0,                                      15, "-0"                   },
      {2.5,                                       15, "2.5"                  },
      {1e15,                                      15, "1e+15"                },
      {0.0001,                                    15, "0.0001"               },
      {0.00001,                                   15, "1e-05"                },
      {0.5,                                       0,  "0.5"                  },
      {2.5,                                       1,  "2"                    }, // halves to even
      {std::numeric_limits<double>::max(),        15, "1.79769313486232e+308"},
      {std::numeric_limits<double>::denorm_min(), 3,  "4.94e-324"            },
  };
  for (const auto& row : kRows) {
    EXPECT_EQ(Write(row.value, std::chars_format::general, row.digits), row.text);
    EXPECT_EQ(Print(row.value, std::chars_format::general, row.digits), row.text);
  }
}

TEST(WriteReal, WritesAllDigitsOfTheSmallestNumber) {
  const double smallest = std::numeric_limits<double>::denorm_min();
  const std::string text = Print(smallest, std::chars_format::scientific, 766);
  EXPECT_EQ(text, Write(smallest, std::chars_format::scientific, 766));
  // 5^1074 has 751 digits, and ends with 5625 as 5^6 does; zeros follow.
  EXPECT_EQ(text.substr(0, 10), "4.94065645");
  EXPECT_EQ(text.substr(748, 6), "562500");
  EXPECT_TRUE(text.ends_with("000e-324"));
}

TEST(WriteReal, PrintfAgreesOnAnyBits) {
  std::mt19937_64 random(20);
  for (int i = 0; i < 20'000; ++i) {
    const std::uint64_t bits = random();
    double value;
    std::memcpy(&value, &bits, sizeof(value));
    if (!(value - value == 0)) continue;  // not finite
    const int digits = static_cast<int>(random() % 18);
    EXPECT_EQ(Print(value, std::chars_format::general, digits),
              Write(value, std::chars_format::general, digits));
    EXPECT_EQ(Print(value, std::chars_format::scientific, digits),
              Write(value, std::chars_format::scientific, digits));
  }
}

}  // namespace
}  // namespace Quarn

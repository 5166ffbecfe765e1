// Tests of the short ways between numbers and text: what they take on, and that it comes out as the
// standard streams have it, over more than a million values and texts.
#include "utils/decimal.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <cstdint>
#include <locale>
#include <random>
#include <sstream>
#include <string>

namespace Quarn {
namespace {

// The text of a number; "none" when the short way does not take it on.
std::string Write(double value) {
  char room[32];
  char* end = WriteOrdinary(room, value);
  return end ? std::string(&room[0], end) : "none";
}

TEST(WriteOrdinary, WritesWhatPeopleReckonWith) {
  const struct {
    double value;
    const char* text;
  } kRows[] = {
      {1,                   "1"                },
      {-12,                 "-12"              },
      {999999999999999,     "999999999999999"  },
      {0.5,                 "0.5"              },
      {-2.5,                "-2.5"             },
      {100.25,              "100.25"           },
      {0.0001,              "0.0001"           },
      {0.1,                 "0.1"              },
      {0.1 + 0.2,           "0.3"              }, // 0.300000000000000044
      {1.0 / 3,             "0.333333333333333"},
      {2.0 / 3,             "0.666666666666667"},
      {200.0 / 3,           "66.6666666666667" },
      {0.99999999999999999, "1"                },
      {9.9999999999999994,  "10"               }, // the sixteenth digit carries through
      {123456789012345.5,   "123456789012346"  }, // a tie, to even
      {123456789012344.5,   "123456789012344"  }, // a tie, to even
      {123456789.123456789, "123456789.123457" },
  };
  for (const auto& row : kRows) EXPECT_EQ(Write(row.value), row.text);
}

TEST(WriteOrdinary, LeavesTheRestToTheGeneralWay) {
  for (double value : {0.0, -0.0, 0.00009999, 1e-300, 1e15, -1e15, 999999999999999.9, 1e300,
                       HUGE_VAL, -HUGE_VAL, std::nan("")}) {
    EXPECT_EQ(Write(value), "none") << value;
  }
}

TEST(WriteOrdinary, WritesWhatAStreamWrites) {
  std::ostringstream stream;
  stream.imbue(std::locale::classic());
  stream.precision(15);
  std::mt19937_64 random(1);
  int taken_on = 0;
  for (int i = 0; i < 400000; ++i) {
    const double power = std::pow(10.0, static_cast<double>(random() % 20) - 4);
    const double any = static_cast<double>(random() >> 11) * 0x1p-53 * power;
    const double decimal = std::round(any * 10000) / 10000;
    for (double value : {any, -decimal, std::nextafter(decimal, 0), power}) {
      const std::string text = Write(value);
      if (text == "none") continue;
      ++taken_on;
      stream.str("");
      stream << value;
      ASSERT_EQ(text, stream.str());
    }
  }
  EXPECT_GT(taken_on, 1000000);
}

TEST(ReadOrdinary, ReadsWhatPeopleType) {
  const struct {
    const char* text;
    double value;
  } kRows[] = {
      {"0",                0               },
      {"12",               12              },
      {"-12",              -12             },
      {"+7",               7               },
      {"007",              7               },
      {"2.5",              2.5             },
      {".5",               0.5             },
      {"5.",               5               },
      {"-.25",             -0.25           },
      {"0.1",              0.1             },
      {"9007199254740992", 9007199254740992},
  };
  for (const auto& row : kRows) {
    EXPECT_EQ(ReadOrdinary(row.text).Get(), row.value) << row.text;
  }
  const double minus_zero = ReadOrdinary("-0").Get();
  EXPECT_EQ(minus_zero, 0);
  EXPECT_TRUE(std::signbit(minus_zero));
}

TEST(MakeOrdinary, PutsTheFullStopIntoDigits) {
  EXPECT_EQ(MakeOrdinary(0, 0), 0);
  EXPECT_EQ(MakeOrdinary(12345, 0), 12345);
  EXPECT_EQ(MakeOrdinary(12345, 2), 123.45);
  EXPECT_EQ(MakeOrdinary(12345, 5), 0.12345);
  EXPECT_EQ(MakeOrdinary(1, 22), 1e-22);
  EXPECT_EQ(MakeOrdinary(std::uint64_t{1} << 53, 3), 9007199254740.992);
  EXPECT_TRUE(std::isnan(MakeOrdinary((std::uint64_t{1} << 53) + 1, 0)));
  EXPECT_TRUE(std::isnan(MakeOrdinary(~std::uint64_t{0}, 22)));
}

TEST(ReadOrdinary, LeavesEveryOtherTextAlone) {
  for (const char* text :
       {"", "+", "-", ".", "-.", "1e5", "1.2.3", " 1", "1 ", "12a", "--1", "+-1",
        "9007199254740993", "12345678901234567890", "0x1", "1,5", "inf", "nan"}) {
    EXPECT_TRUE(ReadOrdinary(text).IsNaN()) << text;
  }
}

TEST(ReadOrdinary, ReadsWhatAStreamReads) {
  std::istringstream stream;
  stream.imbue(std::locale::classic());
  std::mt19937_64 random(2);
  int taken_on = 0;
  for (int i = 0; i < 400000; ++i) {
    std::string text = std::to_string(random() >> (10 + random() % 54));
    text.insert(static_cast<std::size_t>(random() % (text.size() + 1)), ".");
    const double value = ReadOrdinary(text).Get();
    if (std::isnan(value)) continue;
    ++taken_on;
    stream.clear();
    stream.str(text);
    double judged = 0;
    stream >> judged;
    ASSERT_EQ(std::bit_cast<std::uint64_t>(value), std::bit_cast<std::uint64_t>(judged)) << text;
  }
  EXPECT_GT(taken_on, 300000);
}

}  // namespace
}  // namespace Quarn

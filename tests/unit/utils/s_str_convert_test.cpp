// Tests of numbers and booleans to and from text: rows worked out by hand.
#include "utils/s_str_convert.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <locale>
#include <string>
#include <string_view>

#include "tests/support/dump.h"

namespace Quarn {
namespace {

constexpr double kInf = std::numeric_limits<double>::infinity();
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kMax = std::numeric_limits<double>::max();
constexpr double kHuge = 1e300;

TEST(SStrConvert, DoubleToText) {
  const struct {
    double value;
    const char* text;
  } kRows[] = {
      {0.0,                     "0"                     },
      {-0.0,                    "-0"                    },
      {1.0,                     "1"                     },
      {2.0,                     "2"                     },
      {0.5,                     "0.5"                   },
      {0.1,                     "0.1"                   },
      {-0.1,                    "-0.1"                  },
      {1.0 / 3.0,               "0.333333333333333"     },
      {2.0 / 3.0,               "0.666666666666667"     },
      {0.1 + 0.2,               "0.3"                   }, // the error is in the 17th digit
      {100.0,                   "100"                   }, // zeros before the point stay
      {123456.789,              "123456.789"            },
      {1e14,                    "100000000000000"       },
      {999999999999999.0,       "999999999999999"       },
      {1e15,                    "1e+15"                 }, // as many digits as the precision
      {999999999999999.6,       "1e+15"                 }, // rounds up to it
      {1e20,                    "1e+20"                 },
      {1.23456789012345678e+17, "1.23456789012346e+17"  },
      {0.0001,                  "0.0001"                },
      {0.00001,                 "1e-05"                 }, // at least two digits of exponent
      {0.00012345,              "0.00012345"            },
      {1e100,                   "1e+100"                },
      {1e-100,                  "1e-100"                },
      {-1.23456789012346e-308,  "-1.23456789012346e-308"},
      {4.9406564584124654e-324, "4.94065645841247e-324" },
      {1.7976931348623157e+308, "1.79769313486232e+308" },
      {0.0 / -1.0,              "-0"                    },
      {kNaN,                    "nan"                   },
      {-kNaN,                   "nan"                   },
      {kHuge * kHuge,           "inf+"                  },
      {-kHuge * kHuge,          "inf-"                  },
  };
  for (const auto& row : kRows) {
    EXPECT_EQ(ToText(s_double(row.value)).Get(), row.text);
    char room[kNumberRoom];
    EXPECT_EQ(std::string(room, WriteDouble(room, row.value)), row.text);
  }
}

TEST(SStrConvert, FloatToTextHasSixDigits) {
  const struct {
    float value;
    const char* text;
  } kRows[] = {
      {0.1F,                                    "0.1"        },
      {1.0F / 3.0F,                             "0.333333"   },
      {123456.0F,                               "123456"     },
      {1234567.0F,                              "1.23457e+06"},
      {16777216.0F,                             "1.67772e+07"},
      {-0.00001F,                               "-1e-05"     },
      {std::numeric_limits<float>::quiet_NaN(), "nan"        },
      {std::numeric_limits<float>::infinity(),  "inf+"       },
      {-std::numeric_limits<float>::infinity(), "inf-"       },
  };
  for (const auto& row : kRows) EXPECT_EQ(ToText(s_float(row.value)).Get(), row.text);
}

TEST(SStrConvert, IntegersToText) {
  EXPECT_EQ(ToText(s_uint(0U)).Get(), "0");
  EXPECT_EQ(ToText(s_uint(42U)).Get(), "42");
  EXPECT_EQ(ToText(s_uint(4294967295U)).Get(), "4294967295");
  constexpr unsigned long kLargest = std::numeric_limits<unsigned long>::max();
  EXPECT_EQ(ToText(s_ulong(kLargest)).Get(), std::to_string(kLargest));
  EXPECT_EQ(ToText(s_int(-2147483647 - 1)).Get(), "-2147483648");
  EXPECT_EQ(ToText(s_uint::INF).Get(), "inf");
  EXPECT_EQ(ToText(s_uint::NaN).Get(), "nan");
  EXPECT_EQ(ToText(s_ulong::INF).Get(), "inf");
  EXPECT_EQ(ToText(s_ulong::NaN).Get(), "nan");
  EXPECT_EQ(ToText(s_int::INF).Get(), "inf");
  EXPECT_EQ(ToText(s_int::NaN).Get(), "nan");
}

TEST(SStrConvert, TextToDouble) {
  const struct {
    const char* text;
    double value;
    bool complete;
  } kRows[] = {
      {"12",            12,                      true },
      {"12abc",         12,                      true }, // the rest may be anything
      {" \t\n\v\f\r12", 12,                      true },
      {"-0.5",          -0.5,                    true },
      {"+0.5",          0.5,                     true },
      {".5",            0.5,                     true },
      {"5.",            5,                       true },
      {"1.2.3",         1.2,                     true },
      {"1e3",           1000,                    true },
      {"1E-3x",         0.001,                   true },
      {"1e+2",          100,                     true },
      {"1e2.5",         100,                     true },
      {"0x10",          0,                       true },
      {"1,5",           1,                       true },
      {"1e-400",        0,                       true }, // too small to tell from 0
      {"5e-324",        4.9406564584124654e-324, true },
      {"0.1e-400",      0,                       true },
      {"1e999",         kMax,                    false},
      {"-1e999",        -kMax,                   false},
      {"1.8e308",       kMax,                    false},
      {"5e",            0,                       false}, // an exponent once begun must be there
      {"5e+",           0,                       false},
      {"5ex",           0,                       false},
      {"",              0,                       false},
      {"  ",            0,                       false},
      {"abc",           0,                       false},
      {"-",             0,                       false},
      {"+",             0,                       false},
      {".",             0,                       false},
      {"-.",            0,                       false},
      {".e5",           0,                       false},
      {"+-5",           0,                       false},
      {"--5",           0,                       false},
      {"- 5",           0,                       false},
      {"\0015",         0,                       false}, // not every control character is a space
      {"nan",           0,                       false},
      {"inf",           0,                       false},
      {"infinity",      0,                       false},
  };
  for (const auto& row : kRows) {
    const NumberRead read = ReadDouble(row.text);
    EXPECT_EQ(read.value.Get(), row.value) << row.text;
    EXPECT_EQ(bool(read.complete), row.complete) << row.text;
    EXPECT_EQ(ToDouble(row.text).Get(), row.value) << row.text;
  }
}

TEST(SStrConvert, TextToDoubleKeepsTheSignOfZero) {
  EXPECT_TRUE(std::signbit(ReadDouble("-0").value.Get()));
  EXPECT_TRUE(std::signbit(ReadDouble("-1e-400").value.Get()));
  EXPECT_FALSE(std::signbit(ReadDouble("+0").value.Get()));
}

TEST(SStrConvert, TextToDoubleReadsNoFurtherThanTheView) {
  EXPECT_EQ(ReadDouble(std::string_view("12345").substr(0, 2)).value.Get(), 12);
  EXPECT_EQ(ReadDouble(std::string_view("1e5").substr(0, 1)).value.Get(), 1);
  EXPECT_FALSE(ReadDouble(std::string_view("-5").substr(0, 1)).complete);
  EXPECT_FALSE(ReadDouble(std::string_view()).complete);
}

TEST(SStrConvert, TextToFloat) {
  EXPECT_EQ(ToFloat("0.1x").Get(), 0.1F);
  EXPECT_EQ(ToFloat(" -2.5e1").Get(), -25.0F);
  EXPECT_EQ(ToFloat("1e39").Get(), std::numeric_limits<float>::max());
  EXPECT_EQ(ToFloat("abc").Get(), 0.0F);
  EXPECT_EQ(ToFloat("").Get(), 0.0F);
}

TEST(SStrConvert, TextToUint) {
  const struct {
    const char* text;
    unsigned int value;
  } kRows[] = {
      {"12",          12        },
      {" 12abc",      12        },
      {"+5",          5         },
      {"1.9",         1         },
      {"007",         7         },
      {"0x10",        0         },
      {"4294967295",  4294967295},
      {"4294967296",  4294967295}, // too large
      {"99999999999", 4294967295},
      {"-1",          4294967295}, // a minus sign wraps
      {"",            0         },
      {"abc",         0         },
      {"-",           0         },
  };
  for (const auto& row : kRows) {
    EXPECT_EQ(ToUint(row.text).Get(), row.value) << row.text;
    EXPECT_TRUE(ToUint(row.text).IsValid()) << row.text;
  }
}

TEST(SStrConvert, TextToUlong) {
  constexpr unsigned long kLargest = std::numeric_limits<unsigned long>::max();
  EXPECT_EQ(ToUlong("4294967295").Get(), 4294967295UL);
  EXPECT_EQ(ToUlong(std::to_string(kLargest)).Get(), kLargest);
  EXPECT_EQ(ToUlong("18446744073709551616").Get(), kLargest);
  EXPECT_EQ(ToUlong("x").Get(), 0UL);
}

TEST(SStrConvert, TextToInt) {
  const struct {
    const char* text;
    int value;
  } kRows[] = {
      {"12",          12             },
      {" 12abc",      12             },
      {"-12",         -12            },
      {"+5",          5              },
      {"-1.9",        -1             },
      {"2147483647",  2147483647     },
      {"2147483648",  2147483647     }, // too large
      {"-2147483648", -2147483647 - 1},
      {"-2147483649", -2147483647 - 1}, // too small
      {"",            0              },
      {"abc",         0              },
      {"-",           0              },
      {"--5",         0              },
  };
  for (const auto& row : kRows) {
    EXPECT_EQ(ToInt(row.text).Get(), row.value) << row.text;
    EXPECT_TRUE(ToInt(row.text).IsValid()) << row.text;
  }
}

TEST(SStrConvert, BooleanWordsAreReadAndTheOthersAreFalse) {
  for (const char* text : {"true", "1", "yes"}) EXPECT_TRUE(ToBool(text)) << text;
  for (const char* text : {"false", "0", "no", "", "Yes", "yes ", "2", "TRUE"}) {
    EXPECT_FALSE(ToBool(text)) << text;
  }
  EXPECT_EQ(ToText(s_bool(true)).Get(), "true");
  EXPECT_EQ(ToText(s_bool(false)).Get(), "false");
}

// A host program whose numbers are written "1.234,5".
class CommaForPoint : public std::numpunct<char> {
 protected:
  char do_decimal_point() const override { return ','; }
  char do_thousands_sep() const override { return '.'; }
  std::string do_grouping() const override { return "\3"; }
};

class HostileLocale {
 public:
  HostileLocale()
      : before_(std::locale::global(std::locale(std::locale::classic(), new CommaForPoint))) {}
  ~HostileLocale() { std::locale::global(before_); }

 private:
  std::locale before_;
};

TEST(SStrConvert, TheLocaleOfTheHostChangesNothing) {
  const HostileLocale locale;
  EXPECT_EQ(ToText(s_double(1234567.5)).Get(), "1234567.5");
  EXPECT_EQ(ToText(s_float(12345.5F)).Get(), "12345.5");
  EXPECT_EQ(ToText(s_uint(1234567U)).Get(), "1234567");
  EXPECT_EQ(ToText(s_int(-1234567)).Get(), "-1234567");
  EXPECT_EQ(ReadDouble("1.5").value.Get(), 1.5);
  EXPECT_EQ(ReadDouble("1,5").value.Get(), 1);
  EXPECT_EQ(ReadDouble("1.234,5").value.Get(), 1.234);
  EXPECT_EQ(ReadDouble("1.5e999").value.Get(), kMax);
  EXPECT_EQ(ReadDouble("1.5e-400").value.Get(), 0);
  EXPECT_EQ(ToFloat("1.5").Get(), 1.5F);
  EXPECT_EQ(ToUint("1.234").Get(), 1U);
  EXPECT_EQ(ToUlong("1.234").Get(), 1UL);
  EXPECT_TRUE(s_str("1.5").IsNumber());
  EXPECT_FALSE(s_str(",5").IsNumber());
  EXPECT_EQ(kInf, kHuge * kHuge);
}

}  // namespace
}  // namespace Quarn

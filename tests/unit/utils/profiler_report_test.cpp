// Tests of the report of the profilers and of its number layout.
#include <gtest/gtest.h>

#include <limits>
#include <string>

#include "utils/profiler.h"

namespace Quarn {
namespace {

TEST(FormatSignificant, KeepsFourDigits) {
  const struct {
    double value;
    const char* text;
  } kRows[] = {
      {0,          "0.0000"          },
      {-0.0,       "0.0000"          },
      {1,          "1.000"           },
      {1.5,        "1.500"           },
      {1.05,       "1.050"           }, // the fraction begins with a zero
      {1.0004,     "1.000"           },
      {12.346,     "12.35"           },
      {12.344,     "12.34"           },
      {10.006,     "10.01"           },
      {123.46,     "123.5"           },
      {100,        "100.0"           },
      {1234,       "1234"            }, // none missing: no point
      {1234.4,     "1234"            },
      {1234.6,     "1235"            },
      {0.5,        "0.5000"          },
      {0.12346,    "0.1235"          },
      {0.05,       "0.05000"         },
      {0.001,      "0.001000"        },
      {0.0001234,  "0.0001234"       },
      {1.0625,     "1.063"           }, // a true half goes up
      {1.1875,     "1.188"           },
      {0.99996,    "1.000"           }, // the rounding carries into the next digit
      {0.99994,    "0.9999"          },
      {0.099996,   "0.1000"          },
      {0.0099996,  "0.01000"         },
      {1.9996,     "2.000"           },
      {9.9996,     "10.00"           },
      {99.996,     "100.0"           },
      {999.96,     "1000"            },
      {9999.4,     "9999"            },
      {9999.6,     "10000"           },
      {12345,      "12340"           }, // further digits of the integer part become 0
      {12349.9,    "12340"           },
      {99999.9,    "99990"           },
      {123456,     "123400"          },
      {1e15,       "1000000000000000"},
      {1.2345e15,  "1234000000000000"},
      {4294967296, "4294000000"      },
  };
  for (const auto& row : kRows) EXPECT_EQ(FormatSignificant(row.value, 4U).Get(), row.text);
}

// Kept on purpose: the text has the value of the number.
TEST(FormatSignificant, KeepsTheValueOfTheNumber) {
  const struct {
    double value;
    const char* text;
  } kRows[] = {
      {0.05,      "0.05000"  }, // two multiplications by ten, one zero
      {0.5,       "0.5000"   }, // one, and none
      {0.0001234, "0.0001234"}, // four, and three
      {12.996,    "13.00"    }, // carries into the integer part
      {999.96,    "1000"     }, // and into a digit more, which leaves no fraction
      {1234.6,    "1235"     }, // no point
      {1234,      "1234"     },
      {0,         "0.0000"   },
  };
  for (const auto& row : kRows) {
    EXPECT_EQ(FormatSignificant(row.value, 4U).Get(), row.text);
    EXPECT_NEAR(std::stod(row.text), row.value, row.value * 0.0005);  // half of the fourth digit
  }
}

TEST(FormatSignificant, NegativeNumbersHaveASignInFront) {
  for (const double value : {1.5, 0.05, 0.99996, 9.9996, 12345.0, 1e15}) {
    EXPECT_EQ(FormatSignificant(-value, 4U).Get(), "-" + FormatSignificant(value, 4U).Get());
  }
  EXPECT_EQ(FormatSignificant(-0.99996, 4U).Get(), "-1.000");
}

TEST(FormatSignificant, EndsForEveryNumber) {
  using Limits = std::numeric_limits<double>;
  EXPECT_EQ(FormatSignificant(s_double::NaN(), 4U).Get(), "nan");
  EXPECT_EQ(FormatSignificant(Limits::infinity(), 4U).Get(), "inf+");
  EXPECT_EQ(FormatSignificant(-Limits::infinity(), 4U).Get(), "inf-");
  EXPECT_EQ(FormatSignificant(Limits::max(), 4U).Get(), "1797" + std::string(305, '0'));
  EXPECT_EQ(FormatSignificant(Limits::denorm_min(), 4U).Get(),
            "0." + std::string(323, '0') + "4941");
  EXPECT_EQ(FormatSignificant(-1e-300, 4U).Get(), "-0." + std::string(299, '0') + "1000");
}

TEST(FormatSignificant, TakesOtherNumbersOfDigits) {
  const struct {
    double value;
    unsigned int digits;
    const char* text;
  } kRows[] = {
      {0,         1,  "0.0"                },
      {0.5,       1,  "0.5"                },
      {0.96,      1,  "1"                  },
      {2.5,       1,  "3"                  },
      {9.6,       1,  "10"                 },
      {96,        1,  "90"                 },
      {0.25,      2,  "0.25"               },
      {3.14159,   2,  "3.1"                },
      {3.14159,   6,  "3.14159"            },
      {3,         17, "3.0000000000000000" },
      {0.1,       17, "0.10000000000000001"},
      {123456789, 9,  "123456789"          },
      {123456789, 10, "123456789.0"        },
  };
  for (const auto& row : kRows) {
    EXPECT_EQ(FormatSignificant(row.value, row.digits).Get(), row.text);
  }
}

std::string Report(s_double total, const ProfilerGroups& groups) {
  std::string report;
  for (const s_str& line : MakeReport(total, groups)) report += line.Get() + "\n";
  return report;
}

TEST(MakeReport, WithoutGroupsTellsTheTimeAlone) {
  EXPECT_EQ(Report(2.5, {}),
            "# Profiling info : 2.5 s of profiling\n"
            "# end.\n");
}

TEST(MakeReport, ListsGroupsProfilersAndRecords) {
  ProfilerGroups groups;
  Profiler& sprites = groups["draw"].GetProfiler("sprites");
  sprites.Record(0.5);
  sprites.CountUntimed();
  sprites.Record(1.5);
  groups["draw"].GetProfiler("a text").Record(0.25);
  groups["ai"].GetProfiler("paths").CountUntimed();
  EXPECT_EQ(Report(8.0, groups),
            "# Profiling info : 8 s of profiling\n"
            "# Profiling info for group [ai] : 0 s of profiling\n"
            "  - paths :\n"
            "     - call number     : 1 (1 not timed)\n"
            "     - total time      : nan s (nan% of total)\n"
            "     - average time    : nan ms\n"
            "     - highest time    : nan ms\n"
            "     - lowest time     : nan ms\n"
            "     - listing records :\n"
            "# Profiling info for group [draw] : 2.25 s of profiling\n"
            "  - sprites :\n"
            "     - call number     : 3 (1 not timed)\n"
            "     - total time      : 2.000 s (25.00% of total)\n"
            "     - average time    : 1000 ms\n"
            "     - highest time    : 1500 ms\n"
            "     - lowest time     : 500.0 ms\n"
            "     - listing records :\n"
            "        [0] : 500.0 ms\n"
            "        [1] : 1500 ms\n"
            "  - a text :\n"
            "     - call number     : 1 (0 not timed)\n"
            "     - total time      : 0.2500 s (3.125% of total)\n"
            "     - average time    : 250.0 ms\n"
            "     - highest time    : 250.0 ms\n"
            "     - lowest time     : 250.0 ms\n"
            "     - listing records :\n"
            "        [0] : 250.0 ms\n"
            "# end.\n");
}

TEST(MakeReport, AShareOfNothingIsNoNumber) {
  ProfilerGroups groups;
  groups["g"].GetProfiler("p").Record(1.5);
  EXPECT_NE(Report(0.0, groups).find("     - total time      : 1.500 s (nan% of total)\n"),
            std::string::npos);
}

TEST(MakeReport, GroupTimesPrintWithAllTheirDigits) {
  ProfilerGroups groups;
  groups["g"].GetProfiler("p").Record(1.0 / 3.0);
  EXPECT_EQ(Report(s_double::NaN(), groups),
            "# Profiling info : nan s of profiling\n"
            "# Profiling info for group [g] : 0.333333333333333 s of profiling\n"
            "  - p :\n"
            "     - call number     : 1 (0 not timed)\n"
            "     - total time      : 0.3333 s (nan% of total)\n"
            "     - average time    : 333.3 ms\n"
            "     - highest time    : 333.3 ms\n"
            "     - lowest time     : 333.3 ms\n"
            "     - listing records :\n"
            "        [0] : 333.3 ms\n"
            "# end.\n");
}

}  // namespace
}  // namespace Quarn

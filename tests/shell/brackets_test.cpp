// Tests of tools/brackets: which stretch is shown at the cursor.
#include "tools/brackets.h"

#include <gtest/gtest.h>

#include <string>

namespace Quarn {
namespace {

TEST(FindMatch, FindsTheOtherEnd) {
  // The cursor stands at "|".
  const struct {
    std::string line;
    const char* match;
  } kRows[] = {
      {"2*(1+2)|",   "2"   },
      {"2*(1+2)|)",  "2"   },
      {"2*|(1+2)+1", "7"   },
      {"|()",        "2"   },
      {"()|",        "0"   },
      {"((1)|)",     "1"   },
      {"((1))|",     "0"   },
      {"|((1))",     "5"   },
      {"<1, 2>|",    "0"   },
      {"v[1]|",      "1"   },
      {"(<)|>",      "0"   }, // other kinds do not count
      {"(1)|(2)",    "0"   }, // the one before the cursor is first
      {"1+2|",       "none"},
      {"|",          "none"},
      {"1)|",        "none"},
      {"|(1",        "none"},
      {"(1|)",       "none"}, // beside the cursor, but on its other side
  };
  for (const auto& row : kRows) {
    const std::size_t cursor = row.line.find('|');
    const auto match = FindMatch(std::string(row.line).erase(cursor, 1), cursor);
    EXPECT_EQ(match ? std::to_string(*match) : "none", row.match) << row.line;
  }
}

}  // namespace
}  // namespace Quarn

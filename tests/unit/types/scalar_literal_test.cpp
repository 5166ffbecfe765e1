// Tests of IsNumberLiteral: which texts are numbers as a user writes them.
#include "types/scalar_literal.h"

#include <gtest/gtest.h>

#include <regex>
#include <string>

#include "tests/support/small_world.h"

namespace Quarn {
namespace {

TEST(IsNumberLiteral, TakesNumbers) {
  for (const char* text : {"12", "  12  ", "-3.5e-2", ".5", "5.", "+1", "-0", "0123456789",
                           "1.5e10", "1e+5", "1.e5", ".5e0", "00.00"}) {
    EXPECT_TRUE(IsNumberLiteral(text)) << text;
  }
}

TEST(IsNumberLiteral, AsksForNoDigitBeforeTheExponent) {
  for (const char* text : {"", "   ", "+", "-", ".", "+.", "e5", "-e5", ".e-5"}) {
    EXPECT_TRUE(IsNumberLiteral(text)) << text;
  }
}

TEST(IsNumberLiteral, RefusesTheRest) {
  for (const char* text :
       {"1.2.3", "..",    "1e",    "1e+", "e",     "e+",       "1E5",  "12a", "a",
        "1e5.",  "1e5e5", "1e++5", "--1", "+-1",   "- 1",      "1 2",  "\t1", "1\n",
        "nan",   "inf",   "0x1",   "1,5", "1_000", "\xD9\xA1", "1e 5", "(1)"}) {
    EXPECT_FALSE(IsNumberLiteral(text)) << text;
  }
}

TEST(IsNumberLiteral, AgreesWithAPatternOnEveryShortText) {
  const std::regex number(R"( *[+-]?[0-9]*(\.[0-9]*)?(e[+-]?[0-9]+)? *)");
  ForEachText("1.e+- a", 5, [&](const std::string& text) {
    ASSERT_EQ(IsNumberLiteral(text), std::regex_match(text, number)) << text;
  });
}

}  // namespace
}  // namespace Quarn

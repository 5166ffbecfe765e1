// Tests of IsNumberLiteral: which texts are numbers as a user writes them.
#include "types/scalar_literal.h"

#include <gtest/gtest.h>
#include <regex.h>

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

// The same rule as a pattern.
class NumberPattern {
 public:
  NumberPattern() {
    regcomp(&pattern_, "^ *[+-]?[0-9]*(\\.[0-9]*)?(e[+-]?[0-9]+)? *$", REG_EXTENDED | REG_NOSUB);
  }
  ~NumberPattern() { regfree(&pattern_); }
  NumberPattern(const NumberPattern&) = delete;
  NumberPattern& operator=(const NumberPattern&) = delete;

  bool Matches(const std::string& text) const {
    return regexec(&pattern_, text.c_str(), 0, nullptr, 0) == 0;
  }

 private:
  regex_t pattern_;
};

TEST(IsNumberLiteral, AgreesWithAPatternOnEveryShortText) {
  const NumberPattern number;
  ForEachText("1.e+- a", kLongestInWorld, [&](const std::string& text) {
    ASSERT_EQ(IsNumberLiteral(text), number.Matches(text)) << text;
  });
}

}  // namespace
}  // namespace Quarn

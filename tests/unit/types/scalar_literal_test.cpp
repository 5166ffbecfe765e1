// Tests of number literals: which texts are numbers as a user writes them, and which numbers.
#include "types/scalar_literal.h"

#include <gtest/gtest.h>
#include <regex.h>

#include <cmath>
#include <string>

#include "tests/support/session.h"
#include "tests/support/small_world.h"
#include "types/value.h"
#include "utils/s_str_convert.h"

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

void ExpectAsConverted(const std::string& text) {
  const double number = ReadNumberLiteral(text);
  ASSERT_FALSE(std::isnan(number)) << text;
  const double expected = ReadDouble(text).value.Get();
  EXPECT_EQ(number, expected) << text;
  EXPECT_EQ(std::signbit(number), std::signbit(expected)) << text;
}

TEST(ReadNumberLiteral, GivesTheNumberThatTheTextConversionGives) {
  for (const char* text : {"0",  "-0", "7",   "-7",  "+7",  " 7 ", "007",   "1.5",    "-1.5",
                           ".5", "5.", "-.5", "0.1", "0.3", "1e3", "1e400", "-1e400", "1e-400",
                           "",   "+",  "-",   ".",   "+.",  "e5",  "-e5",   "  "}) {
    ExpectAsConverted(text);
  }
  for (const char* text :
       {"123456789012345678", "1234567890123456789", "12345678901234567890", "9007199254740992",
        "9007199254740993", "9007199254740993.0", "18446744073709551616", "18446744073709551623",
        "36893488147419103239", "0.1234567890123456789", "0.000000000000000000000000000000001"}) {
    ExpectAsConverted(text);
  }
  EXPECT_EQ(ReadNumberLiteral(std::string(100, '0') + "1.5"), 1.5);
  ForEachText("019.", kLongestInWorld, [](const std::string& text) {
    if (IsNumberLiteral(text)) ExpectAsConverted(text);
  });
}

TEST(ReadNumberLiteral, GivesNothingForOtherTexts) {
  for (const char* text : {"1.2.3", "1e", "e+", "1E5", "12a", "1 2", "- 1", "nan", "1\n"}) {
    EXPECT_TRUE(std::isnan(ReadNumberLiteral(text))) << text;
  }
}

// Whatever the rule is, it is the language's: what is a literal is a number there, and all else is
// not.
TEST(IsNumberLiteral, DecidesWhatIsANumberInAnExpression) {
  Session session;
  ForEachText("10.eEa", kLongestInWorld, [&](const std::string& text) {
    if (text.empty()) return;
    const std::string said = session.Evaluate(text);
    const bool is_number = said.starts_with("Scalar : ");
    ASSERT_EQ(is_number, IsNumberLiteral(text)) << text;
    ASSERT_NE(is_number, said.starts_with("\tError : ")) << text;
    if (is_number) {
      ASSERT_EQ(ToNumber(session.Parse(text)), ReadNumberLiteral(text)) << text;
    }
  });
}

}  // namespace
}  // namespace Quarn

// Numbers, names, and the cut at the top level.
#include "tests/model/model_text.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>
#include <vector>

#include "tests/model/model_test_support.h"

namespace Quarn::model {
namespace {

const double kInfinity = std::numeric_limits<double>::infinity();
const double kNaN = std::numeric_limits<double>::quiet_NaN();

std::string Joined(const std::vector<std::string>& pieces) {
  std::string joined;
  for (const std::string& piece : pieces) joined += "[" + piece + "]";
  return joined;
}

// The pieces, or the message when a bracket is wrong.
std::string Pieces(const std::string& text, Separator separator) {
  std::vector<std::string> pieces;
  std::string error;
  return CutTopLevel(text, separator, pieces, error) ? Joined(pieces) : error;
}

TEST(NumberText, HasFifteenDigitsAndWordsForTheRest) {
  const struct {
    double value;
    const char* text;
  } kRows[] = {
      {1.0,                    "1"                   },
      {0.5,                    "0.5"                 },
      {0.1,                    "0.1"                 },
      {2.0,                    "2"                   },
      {-0.0,                   "-0"                  },
      {1e20,                   "1e+20"               },
      {1.0 / 3.0,              "0.333333333333333"   },
      {1.23456789012345678e17, "1.23456789012346e+17"},
      {1e14,                   "100000000000000"     },
      {1e15,                   "1e+15"               },
      {0.0001,                 "0.0001"              },
      {0.00001,                "1e-05"               },
      {kNaN,                   "nan"                 },
      {-kNaN,                  "nan"                 },
      {kInfinity,              "inf+"                },
      {-kInfinity,             "inf-"                },
  };
  for (const auto& row : kRows) EXPECT_EQ(NumberText(row.value), row.text);
}

TEST(IsNumber, AsksForNoDigitAnywhere) {
  for (const char* text : {"12", "  12 ", "-3.5e-2", ".5", "5.", "", " ", "+", "-", ".", "e5",
                           "-.e+0", "1e5", "1.e05", "0", "00.00", "+.5"}) {
    EXPECT_TRUE(IsNumber(text)) << text;
  }
}

TEST(IsNumber, RefusesWhatIsNotWritten) {
  for (const char* text :
       {"1.2.3", "..",    "1e",    "e",   "1e+", "1e-", "1E5", "12a", "a",   "1 2",   "--1",
        "+-1",   "1e5.0", "1e5e5", "nan", "inf", "0x1", "\t1", "1\t", "1,2", "1e+-2", "1-2"}) {
    EXPECT_FALSE(IsNumber(text)) << text;
  }
}

TEST(ReadNumber, GivesZeroForWhatAStreamCannotRead) {
  for (const char* text : {"", "+", "-", ".", "e5", ".e1", "-."}) {
    EXPECT_EQ(ReadNumber(text), 0.0) << text;
  }
}

TEST(ReadNumber, StopsAtTheLargestDouble) {
  EXPECT_EQ(ReadNumber("1e309"), std::numeric_limits<double>::max());
  EXPECT_EQ(ReadNumber("-1e999"), std::numeric_limits<double>::lowest());
  EXPECT_EQ(ReadNumber("12"), 12.0);
  EXPECT_EQ(ReadNumber("007.50"), 7.5);
  EXPECT_EQ(ReadNumber("5."), 5.0);
  EXPECT_EQ(ReadNumber("-3.5e-2"), -0.035);
}

TEST(IsAlphanumeric, IsAsciiAndKnowsNoUnderscore) {
  for (const char* text : {"", "a", "Z9", "123", "x1"}) EXPECT_TRUE(IsAlphanumeric(text)) << text;
  for (const char* text :
       {"_", "my_var", "a b", " a", "a.b", "\ta", "\xC3\xA9", "a-", "@", "[", "`", "{", "/", ":"}) {
    EXPECT_FALSE(IsAlphanumeric(text)) << text;
  }
}

TEST(Trim, RemovesBlanksButNoTabs) {
  EXPECT_EQ(Trim("  a b "), "a b");
  EXPECT_EQ(Trim("   "), "");
  EXPECT_EQ(Trim(""), "");
  EXPECT_EQ(Trim(" \ta\t "), "\ta\t");
}

TEST(Cut, DropsEmptyPiecesButNotTheLast) {
  EXPECT_EQ(Joined(Cut("a,b", ',')), "[a][b]");
  EXPECT_EQ(Joined(Cut("a,,b", ',')), "[a][b]");
  EXPECT_EQ(Joined(Cut(",a", ',')), "[a]");
  EXPECT_EQ(Joined(Cut("a,", ',')), "[a][]");
  EXPECT_EQ(Joined(Cut("", ',')), "[]");
}

TEST(AddError, PutsALineBreakBetweenMessages) {
  std::string error;
  AddError(error, "a");
  EXPECT_EQ(error, "a");
  AddError(error, "b");
  EXPECT_EQ(error, "a\nb");
}

TEST(CutTopLevel, CutsAtOperatorsAndKeepsThem) {
  const Row kRows[] = {
      {"",              ""                        },
      {"a+b",           "[a][+][b]"               },
      {"a + b",         "[a ][+][ b]"             },
      {"-a",            "[-][a]"                  },
      {"a-",            "[a][-]"                  },
      {"- -a",          "[-][ ][-][a]"            },
      {"f(a+b)*2",      "[f(a+b)][*][2]"          },
      {"<1, 2>+<3, 4>", "[<1, 2>][+][<3, 4>]"     },
      {"v[1+1]",        "[v[1+1]]"                },
      {"v[]2",          "[v[]2]"                  },
      {"a*b/c^d!",      "[a][*][b][/][c][^][d][!]"},
      {"(<)",           "[(<)]"                   },
      {"<(1>",          "[<(1>]"                  },
      {"[(]+([)",       "[[(]][+][([)]"           },
      {"a,b",           "[a,b]"                   },
  };
  for (const Row& row : kRows) {
    EXPECT_EQ(Pieces(row.lines, Separator::kOperator), row.output) << row.lines;
  }
}

TEST(CutTopLevel, DropsCommas) {
  EXPECT_EQ(Pieces("a, b,, c", Separator::kComma), "[a][ b][ c]");
  EXPECT_EQ(Pieces(",", Separator::kComma), "");
  EXPECT_EQ(Pieces("1, ,2", Separator::kComma), "[1][ ][2]");
  EXPECT_EQ(Pieces("<1,2>,f(3,4)+1", Separator::kComma), "[<1,2>][f(3,4)+1]");
}

TEST(CutTopLevel, ReportsOneBracket) {
  const Row kRows[] = {
      {"a)",    "\tError : Too many closing ')'"},
      {"a>",    "\tError : Too many closing '>'"},
      {"a]",    "\tError : Too many closing ']'"},
      {"(a",    "\tError : Unterminated '('"    },
      {"<a",    "\tError : Unterminated '<'"    },
      {"[a",    "\tError : Unterminated '['"    },
      {"(1>2",  "\tError : Unterminated '('"    },
      {"(a]",   "\tError : Unterminated '('"    },
      {"([)]",  "\tError : Too many closing ']'"},
      {"a)(",   "\tError : Too many closing ')'"},
      {"<1>2>", "\tError : Too many closing '>'"},
      {"[[1]",  "\tError : Unterminated '['"    },
  };
  for (const Row& row : kRows) {
    EXPECT_EQ(Pieces(row.lines, Separator::kOperator), row.output) << row.lines;
  }
}

TEST(CutTopLevel, AddsToTheMessagesThatAreThere) {
  std::string error = "old";
  std::vector<std::string> pieces;
  EXPECT_FALSE(CutTopLevel("(", Separator::kComma, pieces, error));
  EXPECT_EQ(error, "old\n\tError : Unterminated '('");
}

}  // namespace
}  // namespace Quarn::model

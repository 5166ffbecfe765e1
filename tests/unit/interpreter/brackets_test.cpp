// Tests of State::CheckBrackets and State::IsOperatorAt: where an expression is cut, and what is
// said of brackets that do not match.
#include <gtest/gtest.h>

#include <functional>
#include <string>

#include "interpreter/state.h"
#include "tests/support/session.h"
#include "tests/support/small_world.h"

namespace Quarn {
namespace {

s_bool IsComma(s_str::const_iterator position, const s_str&, s_str& separator) {
  separator = ",";
  return *position == ',';
}

class CheckBrackets : public testing::Test {
 protected:
  // "|a|+|b", or the error alone.
  std::string Cut(const s_str& expression, const State::SeparatorTest& test, bool keep) {
    s_ctnr<s_str> pieces;
    s_str error;
    const s_bool balanced = state_.CheckBrackets(pieces, expression, test, error, keep);
    EXPECT_EQ(static_cast<bool>(balanced), static_cast<bool>(error.IsEmpty())) << expression.Get();
    if (!balanced) return error.Get();
    std::string dump;
    for (const s_str& piece : pieces) dump += "|" + piece.Get();
    return dump;
  }
  std::string CutAtOperators(const s_str& expression) { return Cut(expression, operators_, true); }
  std::string CutAtCommas(const s_str& expression) { return Cut(expression, IsComma, false); }

  State& GetState() { return state_; }

  std::ostringstream out_;
  std::istringstream in_;
  State state_{out_, in_};
  State::SeparatorTest operators_ = std::bind(&State::IsOperatorAt, &state_, std::placeholders::_1,
                                              std::placeholders::_2, std::placeholders::_3);
};

TEST_F(CheckBrackets, CutsAtOperatorsAndKeepsThem) {
  const ValueRow kRows[] = {
      {"",      ""          },
      {" ",     "| "        },
      {"a",     "|a"        },
      {"a+b",   "|a|+|b"    },
      {"a + b", "|a |+| b"  }, // blanks stay
      {"-a",    "|-|a"      }, // no empty piece before the operator
      {"a-",    "|a|-"      },
      {"-",     "|-"        },
      {"a--b",  "|a|-|-|b"  },
      {"- -a",  "|-| |-|a"  }, // a blank piece is one
      {"a*b/c", "|a|*|b|/|c"},
      {"!a^b",  "|!|a|^|b"  },
      {"a,b;c", "|a,b;c"    },
      {"&a=b",  "|&a=b"     },
      {"1e-5",  "|1e|-|5"   }, // a sign is an operator wherever it stands
  };
  for (const auto& row : kRows) EXPECT_EQ(CutAtOperators(row.expression), row.value);
}

TEST_F(CheckBrackets, CutsOnlyAtTopLevel) {
  const ValueRow kRows[] = {
      {"f(a+b)*2",      "|f(a+b)|*|2"     },
      {"(1)+(2)",       "|(1)|+|(2)"      },
      {"<1, 2>+<3, 4>", "|<1, 2>|+|<3, 4>"},
      {"v[1+1]",        "|v[1+1]"         },
      {"v[]2",          "|v[]2"           }, // "[" opens a bracket before it could be an operator
      {"[]",            "|[]"             },
      {"((a)-(b))-c",   "|((a)-(b))|-|c"  },
      {"<<a>-b>-c",     "|<<a>-b>|-|c"    },
      {"v[w[1]-1]-1",   "|v[w[1]-1]|-|1"  },
  };
  for (const auto& row : kRows) EXPECT_EQ(CutAtOperators(row.expression), row.value);
}

TEST_F(CheckBrackets, CutsAtCommasAndDropsThem) {
  const ValueRow kRows[] = {
      {"",                ""                },
      {",",               ""                },
      {",,,",             ""                },
      {"a, b,, c",        "|a| b| c"        }, // the empty piece is left out
      {"a,",              "|a"              },
      {",a",              "|a"              },
      {"a, ,b",           "|a| |b"          }, // a blank one is not
      {"<1, 2>, <3, 4>",  "|<1, 2>| <3, 4>" },
      {"f(a,b),v[1,2],c", "|f(a,b)|v[1,2]|c"},
      {"a+b",             "|a+b"            },
  };
  for (const auto& row : kRows) EXPECT_EQ(CutAtCommas(row.expression), row.value);
}

TEST_F(CheckBrackets, ReportsTheFirstClosingBracketTooMany) {
  const ValueRow kRows[] = {
      {")",     "\tError : Too many closing ')'"},
      {">",     "\tError : Too many closing '>'"},
      {"]",     "\tError : Too many closing ']'"},
      {"a)",    "\tError : Too many closing ')'"},
      {"a)(b",  "\tError : Too many closing ')'"},
      {"(a))>", "\tError : Too many closing ')'"},
      {"1>2",   "\tError : Too many closing '>'"},
      {"([)]",  "\tError : Too many closing ']'"}, // inside "(" the "[" is nothing
      {"]>)",   "\tError : Too many closing ']'"},
      {")(",    "\tError : Too many closing ')'"}, // before what stays open behind it
  };
  for (const auto& row : kRows) {
    EXPECT_EQ(CutAtOperators(row.expression), row.value) << row.expression;
    EXPECT_EQ(CutAtCommas(row.expression), row.value) << row.expression;
  }
}

TEST_F(CheckBrackets, ReportsTheBracketThatStaysOpen) {
  const ValueRow kRows[] = {
      {"(",     "\tError : Unterminated '('"},
      {"<",     "\tError : Unterminated '<'"},
      {"[",     "\tError : Unterminated '['"},
      {"(a",    "\tError : Unterminated '('"},
      {"(a]",   "\tError : Unterminated '('"},
      {"((a)",  "\tError : Unterminated '('"},
      {"(1>2",  "\tError : Unterminated '('"}, // the ">" is nothing inside "("
      {"<(",    "\tError : Unterminated '<'"},
      {"[<(",   "\tError : Unterminated '['"},
      {"(a)<b", "\tError : Unterminated '<'"},
  };
  for (const auto& row : kRows) {
    EXPECT_EQ(CutAtOperators(row.expression), row.value) << row.expression;
    EXPECT_EQ(CutAtCommas(row.expression), row.value) << row.expression;
  }
}

TEST_F(CheckBrackets, OneKindHidesTheOthers) {
  for (const char* balanced : {"(<)", "<(1>", "[(]", "(])", "<)>", "[><(]", "(()>)", "<>()[]"}) {
    EXPECT_EQ(CutAtOperators(balanced), std::string("|") + balanced);
  }
}

TEST_F(CheckBrackets, AddsItsErrorOnALineOfItsOwn) {
  s_ctnr<s_str> pieces;
  s_str error = "\tError : before";
  EXPECT_FALSE(state_.CheckBrackets(pieces, "(a", IsComma, error, false));
  EXPECT_EQ(error.Get(), "\tError : before\n\tError : Unterminated '('");
  EXPECT_TRUE(state_.CheckBrackets(pieces, "a", IsComma, error, false));
  EXPECT_EQ(error.Get(), "\tError : before\n\tError : Unterminated '('");
}

TEST_F(CheckBrackets, AddsToThePiecesThatAreThere) {
  s_ctnr<s_str> pieces = {"x"};
  s_str error;
  EXPECT_TRUE(state_.CheckBrackets(pieces, "a,b", IsComma, error, true));
  std::string dump;
  for (const s_str& piece : pieces) dump += "|" + piece.Get();
  EXPECT_EQ(dump, "|x|a|,|b");
}

// The test is not asked inside brackets, nor inside a separator.
TEST_F(CheckBrackets, CutsAtSeparatorsOfAnyLength) {
  std::string asked;
  const auto is_arrow = [&asked](s_str::const_iterator position, const s_str& text,
                                 s_str& separator) -> s_bool {
    asked += *position;
    EXPECT_TRUE(separator.IsEmpty());
    if (*position != '=' || text.end() - position < 2 || position[1] != '=') return false;
    separator = "==";
    return true;
  };
  EXPECT_EQ(Cut("a==(b==c)==d=", is_arrow, true), "|a|==|(b==c)|==|d=");
  EXPECT_EQ(asked, "a==d=");
}

TEST_F(CheckBrackets, CutsBeforeASeparatorWithoutAText) {
  const auto is_mark = [](s_str::const_iterator position, const s_str&, s_str&) -> s_bool {
    return *position == ';';
  };
  for (const bool keep : {false, true}) {
    EXPECT_EQ(Cut("a;(b;c);d", is_mark, keep), "|a|;(b;c)|;d");
  }
}

TEST_F(CheckBrackets, LeavesTheExpressionAlone) {
  const s_str expression = " a+(b) ";
  CutAtOperators(expression);
  EXPECT_EQ(expression.Get(), " a+(b) ");
}

TEST_F(CheckBrackets, AgreesWithASlowerReadingOnEveryShortText) {
  std::size_t differing = 0;
  ForEachText(kBracketWorld, kLongestInWorld, [&](const std::string& text) {
    const SlowBrackets slow(text);
    const std::string cut = CutAtOperators(text);
    if (cut == slow.Cut('+', true) && CutAtCommas(text) == slow.Cut(',', false)) {
      if (cut.starts_with('\t') || JoinPieces(cut) == text) return;
    }
    if (++differing < 10) ADD_FAILURE() << text << " is cut into " << cut;
  });
  EXPECT_EQ(differing, 0U);
}

TEST_F(CheckBrackets, FindsTheOperatorsOfTheLanguage) {
  const struct {
    const char *rest, *op;
  } kRows[] = {
      {"+1", "+" },
      {"-",  "-" },
      {"*)", "*" },
      {"/",  "/" },
      {"!!", "!" },
      {"^",  "^" },
      {"[]", "[]"},
      {"[",  "[]"}, // a text that ends inside an operator matches as far as it goes
      {"[a", ""  },
      {"]",  ""  },
      {"a+", ""  },
      {" +", ""  },
      {",",  ""  },
      {"=",  ""  },
      {"&",  ""  },
  };
  for (const auto& row : kRows) {
    const s_str text = s_str("x+") + row.rest;
    s_str op;
    EXPECT_EQ(static_cast<bool>(state_.IsOperatorAt(text.begin() + 2, text, op)), *row.op != '\0')
        << row.rest;
    EXPECT_EQ(op.Get(), row.op) << row.rest;
  }
}

// Where the expression ends, every operator goes on; the first in ascending order is named.
TEST_F(CheckBrackets, FindsTheFirstOperatorAtTheEnd) {
  const s_str text = "x";
  s_str op;
  EXPECT_TRUE(state_.IsOperatorAt(text.end(), text, op));
  EXPECT_EQ(op.Get(), "!");
}

TEST_F(CheckBrackets, LeavesTheTextOfTheOperatorAloneWhereThereIsNone) {
  const s_str text = "a";
  s_str op = "before";
  EXPECT_FALSE(state_.IsOperatorAt(text.begin(), text, op));
  EXPECT_EQ(op.Get(), "before");
}

}  // namespace
}  // namespace Quarn

// Tests of the evaluation of expressions: priorities, sides, parentheses, names and flags.
#include <gtest/gtest.h>

#include <cmath>
#include <string>

#include "tests/support/foreign_types.h"
#include "tests/support/session.h"
#include "types/lift.h"

namespace Quarn {
namespace {

std::string MissingOperands(const std::string& op) {
  return "\tError : Operator '" + op + "' is missing its operands";
}

TEST(Evaluate, GoesFromLeftToRightAmongEquals) {
  Session session;
  const ValueRow kRows[] = {
      {"1-2-3",   "Scalar : -4"},
      {"8/4/2",   "Scalar : 1" },
      {"8/4*2",   "Scalar : 4" },
      {"8*4/2",   "Scalar : 16"},
      {"1-2+3",   "Scalar : 2" },
      {"1+2-3",   "Scalar : 0" },
      {"9-3-2-1", "Scalar : 3" },
  };
  ExpectValues(session, kRows);
}

TEST(Evaluate, TheTighterOperatorGoesFirst) {
  Session session;
  session.GetState().AddBinary({
      {"Scalar", "^", "Scalar", Binary([](double x, double y) { return std::pow(x, y); })}
  });
  const ValueRow kRows[] = {
      {"2+3*4",         "Scalar : 14"},
      {"2*3+4",         "Scalar : 10"},
      {"2*3+4*5",       "Scalar : 26"},
      {"1-6/3-1",       "Scalar : -2"},
      {"2*3^2",         "Scalar : 18"},
      {"2^3^2",         "Scalar : 64"},
      {"-2^2",          "Scalar : -4"}, // the sign comes last
      {"!3^2",          "Scalar : 36"}, // the factorial first
      {"2^!3",          "Scalar : 64"},
      {"!3*2",          "Scalar : 12"},
      {"-2*3",          "Scalar : -6"},
      {"-2+3",          "Scalar : 1" },
      {"-!3",           "Scalar : -6"},
      {"2*(3+4)",       "Scalar : 14"},
      {"(1-2)-3",       "Scalar : -4"},
      {"1-(2-3)",       "Scalar : 2" },
      {"8/(4/2)",       "Scalar : 4" },
      {"!(1+2)",        "Scalar : 6" },
      {"1+2*3^2-4",     "Scalar : 15"},
      {"1+2*3-4*5+6",   "Scalar : -7"},
      {"1-(2-3*4)-5",   "Scalar : 6" },
      {"((1+2)*3-4)*5", "Scalar : 25"},
      {"1+!3*2-4",      "Scalar : 9" },
  };
  ExpectValues(session, kRows);
}

TEST(Evaluate, SpacesAroundAnythingMeanNothing) {
  Session session;
  session.Type("a=2;v=<5, 7>");
  const ValueRow kRows[] = {
      {"  a  ",           "Scalar : 2"     },
      {" 1 + 2 ",         "Scalar : 3"     },
      {" ( 1+2 ) ",       "Scalar : 3"     },
      {" min ( 1 , 2 ) ", "Scalar : 1"     },
      {" v [ 1 ] ",       "Scalar : 7"     },
      {" < 1 , 2 > ",     "Vector : <1, 2>"},
      {" - a",            "Scalar : -2"    },
      {" &  a ",          "Scalar : 2"     },
      {"( ( a ) )",       "Scalar : 2"     },
  };
  ExpectValues(session, kRows);
}

TEST(Evaluate, TabsAreNoSpaces) {
  Session session;
  session.Type("a=2");
  EXPECT_EQ(session.Evaluate("\ta"),
            "\tError : Unable to parse expression '\ta', no operator found");
  EXPECT_EQ(session.Evaluate("\t"), "\tError : Unable to parse expression '\t', no operator found");
}

TEST(Evaluate, NothingIsNoSymbol) {
  Session session;
  for (const char* text :
       {"", "   ", "()", "( )", "(())", "()+1", "1+()", "min( )", "<1, >", "< >"}) {
    EXPECT_EQ(session.Evaluate(text), "\tError : Empty symbol") << text;
  }
}

TEST(Evaluate, ParenthesesAroundAllAreTakenOffOnePairAtATime) {
  Session session;
  session.Type("a=1;b=2");
  const ValueRow kRows[] = {
      {"(1+2)",         "Scalar : 3"                     },
      {"((1))",         "Scalar : 1"                     },
      {"(((a)+((b))))", "Scalar : 3"                     },
      {"(1)+(2)",       "Scalar : 3"                     },
      {"(a)(b)",        "\tError : Too many closing ')'" }, // "a)(b"
      {"(a) (b)",       "\tError : Too many closing ')'" },
      {"(1)min(2,3)",   "\tError : Too many closing ')'" },
      {"(a)b",          "\tError : Undefined function ''"},
      {"(<1, 2)",       "\tError : Unterminated '<'"     },
      {"(a]+1",         "\tError : Unterminated '('"     },
      {"1+(2",          "\tError : Unterminated '('"     },
      {"((1)",          "\tError : Unterminated '('"     },
      {"1+(2]+(3>)",    "\tError : Unterminated '('"     },
  };
  ExpectValues(session, kRows);
}

TEST(Evaluate, AnOperatorAloneIsMissingItsOperands) {
  Session session;
  session.Type("a=1");
  for (const char* op : {"+", "-", "*", "/", "^", "!", "[]"}) {
    for (const char* around : {"#", " # ", "(#)", "((#))", "min(#, 1)", "min(1, #)", "<#>",
                               "<1, #>", "a[#]", "1+(#)", "#--1"}) {
      std::string text = around;
      text.replace(text.find('#'), 1, op);
      if (text == "a[[]]") continue;  // ends at its first "]"
      EXPECT_EQ(session.Evaluate(text), MissingOperands(op)) << text;
    }
  }
}

TEST(Evaluate, TheLeftTextOfASignMayBeAnOperatorAlone) {
  Session session;
  session.Type("a=1");
  for (const char* text : {"--a", "- - a", "(--a)", "--a*2"}) {
    EXPECT_EQ(session.Evaluate(text), MissingOperands("-")) << text;
  }
  for (const char* text : {"+-a", "+ + a", "+-a+1"}) {
    EXPECT_EQ(session.Evaluate(text), MissingOperands("+")) << text;
  }
  for (const char* text : {"!-a", "!!3", "!+a"}) {
    EXPECT_EQ(session.Evaluate(text), MissingOperands("!")) << text;
  }
  for (const char* text : {"[]+1", "1+[]", "[]-[]"}) {
    EXPECT_EQ(session.Evaluate(text), MissingOperands("[]")) << text;
  }
}

TEST(Evaluate, AnOperatorWithoutItsLeftSideIsWrittenBeforeItsOperand) {
  Session session;
  session.Type("a");
  const ValueRow kRows[] = {
      {"-1",   "Scalar : -1"                  },
      {"+1",   "Scalar : 1"                   },
      {"!4",   "Scalar : 24"                  },
      {"!2+1", "Scalar : 3"                   },
      {"-!1",  "Scalar : -1"                  },
      {"2*!3", "Scalar : 12"                  }, // which binds tighter
      {"-zz",  "\tError : Unknown symbol 'zz'"},
  };
  ExpectValues(session, kRows);
  const NoMatchRow kNoMatches[] = {
      {"*2",   "* Scalar", "* 2"},
      {"/2*3", "/ Scalar", "/ 2"}, // the left side of "*"
      {"^2",   "^ Scalar", "^ 2"},
      {"-a",   "- Symbol", "- a"},
  };
  ExpectNoMatches(session, kNoMatches);
}

TEST(Evaluate, AnOperatorWithoutItsRightSideIsWrittenBehindItsOperand) {
  Session session;
  session.Type("a");
  const NoMatchRow kRows[] = {
      {"4!",   "Scalar !", "4 !"  }, // the factorial stands before its operand
      {"1+",   "Scalar +", "1 +"  },
      {"1+2*", "Scalar *", "2 *"  },
      {"1*2+", "Scalar +", "2 +"  },
      {"1+2!", "Scalar !", "2 !"  },
      {"a -",  "Symbol -", "a -"  },
      {"<1>^", "Vector ^", "<1> ^"},
  };
  ExpectNoMatches(session, kRows);
  EXPECT_EQ(session.Evaluate("zz!"), "\tError : Unknown symbol 'zz'");
}

TEST(Evaluate, ASignBehindAnOperatorIsNoSign) {
  Session session;
  session.Type("a=1;b=2");
  const NoMatchRow kRows[] = {
      {"2*-3",    "Scalar *", "2 *"},
      {"2+-3",    "Scalar +", "2 +"},
      {"a--b",    "Scalar -", "1 -"},
      {"a - - b", "Scalar -", "1 -"},
      {"2^-3",    "Scalar ^", "2 ^"},
  };
  ExpectNoMatches(session, kRows);
  const ValueRow kValues[] = {
      {"2*(-3)", "Scalar : -6"                  },
      {"a-(-b)", "Scalar : 3"                   },
      {"!(!3)",  "Scalar : 720"                 },
      {"1e5",    "Scalar : 100000"              },
      {"1e-5",   "\tError : Unknown symbol '1e'"},
      {"1e+5",   "\tError : Unknown symbol '1e'"},
  };
  ExpectValues(session, kValues);
}

TEST(Evaluate, OnePieceThatIsNothingKnownHasNoOperator) {
  Session session;
  for (const char* text :
       {"2 3", "a b", "1E5.", "12a.", "1..2", "a_b", "?", "a:b", "=", "#", "a,b", "\xC3\xA9"}) {
    EXPECT_EQ(session.Evaluate(text), std::string("\tError : Unable to parse expression '") + text +
                                          "', no operator found");
  }
  EXPECT_EQ(session.Evaluate("  2  3 "),
            "\tError : Unable to parse expression '2  3', no operator found");
}

TEST(Evaluate, TheResultBearsTheNameThatIsWanted) {
  Session session;
  session.Type("a=2;v=<5, 7>");
  const ValueRow kRows[] = {
      {"1",        "Scalar : x = 1"       },
      {"(1)",      "Scalar : x = 1"       },
      {"a",        "Scalar : x = 2"       },
      {"((a))",    "Scalar : x = 2"       },
      {"1+a",      "Scalar : x = 3"       },
      {"(1+a)",    "Scalar : x = 3"       },
      {"(1)+(a)",  "Scalar : x = 3"       },
      {"-a",       "Scalar : x = -2"      },
      {"+a",       "Scalar : x = 2"       },
      {"v[1]",     "Scalar : x = 7"       },
      {"<a, 1>",   "Vector : x = <2, 1>"  },
      {"v+v",      "Vector : x = <10, 14>"},
      {"&a",       "Scalar : x = 2"       },
      {"min(1,2)", "Scalar : 1"           }, // a function's result keeps the name it was given
  };
  for (const auto& row : kRows) {
    EXPECT_EQ(session.Evaluate(row.expression, "x"), row.value) << row.expression;
  }
}

TEST(Evaluate, OnlyAnUnnamedPlainNameMayBecomeANewSymbol) {
  Session session;
  EXPECT_EQ(session.Evaluate("ab", "", true), "Symbol : ab");
  EXPECT_EQ(session.Evaluate("  ab ", "", true), "Symbol : ab");
  EXPECT_EQ(session.Evaluate("ab", "x", true), "\tError : Unknown symbol 'ab'");
  EXPECT_EQ(session.Evaluate("ab", "", false), "\tError : Unknown symbol 'ab'");
  for (const char* text :
       {"(ab)", "ab+1", "1+ab", "-ab", "min(ab, 1)", "<ab>", "<1>[ab]", "ab[1]"}) {
    EXPECT_EQ(session.Evaluate(text, "", true), "\tError : Unknown symbol 'ab'") << text;
  }
  EXPECT_FALSE(session.GetState().GetSymbol("ab"));
}

TEST(Evaluate, AnAbstractSymbolUnderANameComesWithAWarning) {
  Session session;
  session.Type("ab;r&=ab");
  const std::string warning = "\tWarning : 'Symbol=Symbol' does nothing";
  EXPECT_EQ(session.Evaluate("ab", "x"), warning + "Symbol : ab");
  EXPECT_EQ(session.Evaluate("(ab)", "x"), warning + "Symbol : ab");
  EXPECT_EQ(session.Evaluate("r", "x"), warning + "Symbol : x = ab");
  EXPECT_EQ(session.Evaluate("ab"), "Symbol : ab");
}

TEST(Evaluate, NeverHandsOutWhatIsStored) {
  Session session;
  session.Type("a=2");
  const s_refptr<Symbol> stored = session.GetState().GetSymbol("a");
  const s_refptr<Symbol> value = session.Parse("a");
  EXPECT_NE(value.Get(), stored.Get());
  EXPECT_EQ(stored->GetName().Get(), "a");
  EXPECT_EQ(value->GetName().Get(), "");
}

// An operator may give back a value that has a name; the result has none, or that of the symbol.
TEST(Evaluate, TheResultOfAnOperatorLosesItsName) {
  Session session;
  session.GetState().AddBinary({
      {"Scalar", "^", "Scalar", [](const s_refptr<Symbol>&, const s_refptr<Symbol>&, s_str&) {
         return s_refptr<Symbol>(new Scalar("six", 6));
       }}
  });
  session.GetState().AddRightUnary({
      {"!", "Scalar",
       [](const s_refptr<Symbol>&, s_str&) { return s_refptr<Symbol>(new Scalar("two", 2)); }}
  });
  EXPECT_EQ(session.Evaluate("1^2"), "Scalar : 6");
  EXPECT_EQ(session.Evaluate("1^2", "x"), "Scalar : x = 6");
  EXPECT_EQ(session.Evaluate("!3"), "Scalar : 2");
  EXPECT_EQ(session.Evaluate("!3", "x"), "Scalar : x = 2");
}

}  // namespace
}  // namespace Quarn

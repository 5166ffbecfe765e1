// Tests of Scalar: its text, its copies, its literals and its operators.
#include "types/scalar.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>

#include "tests/support/session.h"
#include "types/lift.h"

namespace Quarn {
namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();

std::string TextOf(double number) { return Scalar(number).ToString().Get(); }

TEST(Scalar, IsNotANumberUntilItIsGivenOne) {
  const Scalar scalar(s_str("x"));
  EXPECT_TRUE(scalar.GetValue().IsNaN());
  EXPECT_EQ(scalar.ToString().Get(), "x = nan");
}

TEST(Scalar, PrintsFifteenDigitsAndTheSpecialValuesByName) {
  const struct {
    double number;
    const char* text;
  } kRows[] = {
      {0,                                         "0"                },
      {-0.0,                                      "-0"               },
      {2,                                         "2"                },
      {0.1,                                       "0.1"              },
      {1.0 / 3,                                   "0.333333333333333"},
      {2.0 / 3,                                   "0.666666666666667"},
      {-2.5,                                      "-2.5"             },
      {100000,                                    "100000"           },
      {123456789012345,                           "123456789012345"  },
      {1e15,                                      "1e+15"            },
      {1e20,                                      "1e+20"            },
      {0.0001,                                    "0.0001"           },
      {0.00001,                                   "1e-05"            },
      {kInfinity,                                 "inf+"             },
      {-kInfinity,                                "inf-"             },
      {std::numeric_limits<double>::quiet_NaN(),  "nan"              },
      {-std::numeric_limits<double>::quiet_NaN(), "nan"              },
  };
  for (const auto& row : kRows) EXPECT_EQ(TextOf(row.number), row.text);
}

TEST(Scalar, PrintsItsNameIfItHasOne) {
  EXPECT_EQ(Scalar("x", 2.5).ToString().Get(), "x = 2.5");
  EXPECT_EQ(Scalar("", 2.5).ToString().Get(), "2.5");
  EXPECT_EQ(Scalar(" ", 2.5).ToString().Get(), "  = 2.5");  // a blank is a name
}

TEST(Scalar, IsOfOneTypeInEveryRespect) {
  const Scalar scalar("x", 1);
  EXPECT_EQ(scalar.GetType().Get(), "Scalar");
  EXPECT_EQ(scalar.GetDeclaredType().Get(), "Scalar");
  EXPECT_EQ(scalar.GetFullType().Get(), "Scalar");
}

TEST(Scalar, CloneIsANumberOfItsOwn) {
  const Scalar scalar("x", 2);
  const s_refptr<Symbol> clone = scalar.Clone();
  clone->SetName("y");
  EXPECT_EQ(clone->ToString().Get(), "y = 2");
  EXPECT_EQ(clone->GetValueText().Get(), "x");
  EXPECT_EQ(scalar.ToString().Get(), "x = 2");
}

TEST(Scalar, CalculatesAsIeeeNumbersDo) {
  Session session;
  const ValueRow kRows[] = {
      {"2*3",      "Scalar : 6"   },
      {"7/2",      "Scalar : 3.5" },
      {"1+2",      "Scalar : 3"   },
      {"1-2",      "Scalar : -1"  },
      {"1/0",      "Scalar : inf+"},
      {"-1/0",     "Scalar : inf-"},
      {"0/0",      "Scalar : nan" },
      {"1/0-1/0",  "Scalar : nan" },
      {"0*(1/0)",  "Scalar : nan" },
      {"1/(1/0)",  "Scalar : 0"   },
      {"1e308*10", "Scalar : inf+"},
      {"-0",       "Scalar : -0"  },
      {"1/(-0)",   "Scalar : inf-"},
      {"0.1+0.2",  "Scalar : 0.3" },
  };
  ExpectValues(session, kRows);
}

TEST(Scalar, HasUnaryOperatorsBeforeIt) {
  Session session;
  session.Type("x=2");
  const ValueRow kRows[] = {
      {"!4",    "Scalar : 24"},
      {"!1",    "Scalar : 1" },
      {"!1.05", "Scalar : 1" },
      {"!3.95", "Scalar : 24"},
      {"-x",    "Scalar : -2"},
      {"+x",    "Scalar : 2" },
      {"-(-x)", "Scalar : 2" },
  };
  ExpectValues(session, kRows);
  const NoMatchRow kNoMatches[] = {
      {"4!",  "Scalar !",        "4 !"  },
      {"4-",  "Scalar -",        "4 -"  },
      {"^4",  "^ Scalar",        "^ 4"  },
      {"2^3", "Scalar ^ Scalar", "2 ^ 3"},
  };
  ExpectNoMatches(session, kNoMatches);
}

TEST(Scalar, PlusKeepsTheNameOfItsOperandAndNothingElseDoes) {
  Session session;
  State& state = session.GetState();
  const s_refptr<Symbol> x(new Scalar("x", 4));
  s_str error;
  const s_refptr<Symbol> copy = state.ApplyRightUnaryOperator("+", x, error);
  EXPECT_EQ(copy->ToString().Get(), "x = 4");
  EXPECT_NE(copy.Get(), x.Get());
  EXPECT_EQ(state.ApplyRightUnaryOperator("-", x, error)->ToString().Get(), "-4");
  EXPECT_EQ(state.ApplyRightUnaryOperator("!", x, error)->ToString().Get(), "24");
  for (const char* op : {"+", "-", "*", "/"}) {
    EXPECT_EQ(state.ApplyBinaryOperator(op, x, x, error)->GetName().Get(), "") << op;
  }
  EXPECT_EQ(x->ToString().Get(), "x = 4");
  EXPECT_EQ(error.Get(), "");
}

TEST(Scalar, HasFunctionsOfOneAndTwoNumbers) {
  Session session;
  const ValueRow kRows[] = {
      {"min(1, 2)",        "Scalar : 1"  },
      {"min(2, 1)",        "Scalar : 1"  },
      {"max(1, 2)",        "Scalar : 2"  },
      {"max(2, 1)",        "Scalar : 2"  },
      {"min(2, 2)",        "Scalar : 2"  },
      {"min(0/0, 1)",      "Scalar : nan"},
      {"min(1, 0/0)",      "Scalar : 1"  },
      {"max(0/0, 1)",      "Scalar : nan"},
      {"max(1, 0/0)",      "Scalar : 1"  },
      {"round(2.5)",       "Scalar : 3"  },
      {"round(-2.5)",      "Scalar : -3" },
      {"round_up(-1.5)",   "Scalar : -1" },
      {"round_down(-1.5)", "Scalar : -2" },
      {"rand(5, 1)",       "Scalar : 5"  },
      {"rand(3, 3)",       "Scalar : 3"  },
      {"rand(0/0, 1)",     "Scalar : nan"},
      {"rand(0, 1/0)",     "Scalar : nan"},
      {"rand()*0",         "Scalar : 0"  },
  };
  ExpectValues(session, kRows);
}

TEST(Scalar, ReadsTheLiteralsOfANumber) {
  Session session;
  const ValueRow kRows[] = {
      {"12",    "Scalar : 12"                    },
      {".5",    "Scalar : 0.5"                   },
      {"5.",    "Scalar : 5"                     },
      {"007",   "Scalar : 7"                     },
      {"2e3",   "Scalar : 2000"                  },
      {"1e",    "\tError : Unknown symbol '1e'"  },
      {"1E5",   "\tError : Unknown symbol '1E5'" },
      {"nan",   "\tError : Unknown symbol 'nan'" },
      {"inf",   "\tError : Unknown symbol 'inf'" },
      {".",     "Scalar : 0"                     }, // what no stream can read is 0
      {"e5",    "Scalar : 0"                     },
      {".e5",   "Scalar : 0"                     },
      {"1e999", "Scalar : 1.79769313486232e+308" }, // the largest number
      {"0x10",  "\tError : Unknown symbol '0x10'"},
  };
  ExpectValues(session, kRows);
}

TEST(Scalar, BuildsFromTextsWithSignsAndBlanks) {
  Session session;
  const TypeRow& type = session.GetState().GetTypes().find(std::string_view("Scalar"))->second;
  const ValueRow kRows[] = {
      {"12",      "x = 12"                    },
      {"  12  ",  "x = 12"                    },
      {"-3.5e-2", "x = -0.035"                },
      {"+7",      "x = 7"                     },
      {"",        "x = 0"                     },
      {"-",       "x = 0"                     },
      {"1e-999",  "x = 0"                     },
      {"-1e999",  "x = -1.79769313486232e+308"},
  };
  for (const ValueRow& row : kRows) {
    s_str error;
    EXPECT_TRUE(type.is_literal(row.expression)) << row.expression;
    const s_refptr<Symbol> value = type.create_from(session.GetState(), "x", row.expression, error);
    EXPECT_EQ(value->ToString().Get(), row.value) << row.expression;
    EXPECT_EQ(error.Get(), "");
  }
}

}  // namespace
}  // namespace Quarn

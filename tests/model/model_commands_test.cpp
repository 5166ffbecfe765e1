// Whole lines: which command a piece is, what it prints, what it leaves behind.
#include <gtest/gtest.h>

#include <algorithm>
#include <deque>
#include <string>

#include "tests/model/model.h"
#include "tests/model/model_help.h"
#include "tests/model/model_test_support.h"

namespace Quarn::model {
namespace {

const char kQuestion[] =
    "\tWarning : This command will erase all symbols.\n"
    "\t          Are you sure ? ([y|Enter]/n) ";
const char kNotAssignable[] = "\tError : Reference to last result '_' is not assignable\n";

std::string BadName(const std::string& name) {
  return "\tError : Only alphanumeric names are allowed for symbols, in '" + name + "'\n";
}

TEST(Line, IsCutAtSemicolons) {
  const Row kRows[] = {
      {"",             ""                                                         },
      {";",            ""                                                         },
      {";;a=1;;",      "\tDefining Scalar : a = 1\n"                              },
      {"a=1;b=2",      "\tDefining Scalar : a = 1\n\tDefining Scalar : b = 2\n"   },
      {"a=1;;b=2",     "\tDefining Scalar : a = 1\n\tDefining Scalar : b = 2\n"   },
      {"y+1;a=1",      "\tError : Unknown symbol 'y'\n\tDefining Scalar : a = 1\n"},
      {"a=1; ",        "\tDefining Scalar : a = 1\n\tError : Empty symbol\n"      },
      {"// x=1",       ""                                                         },
      {"// note; x=1", "\tDefining Scalar : x = 1\n"                              },
      {"1;//;2",       "\tScalar : 1\n\tScalar : 2\n"                             },
      {" // x",        "\tError : Operator '/' is missing its operands\n"         },
  };
  for (const Row& row : kRows) EXPECT_EQ(Last(row.lines), row.output) << row.lines;
}

TEST(Assignment, DefinesAndPrints) {
  const Row kRows[] = {
      {"x=1+2",          "\tDefining Scalar : x = 3\n"     },
      {"  x  = 3 ",      "\tDefining Scalar : x = 3\n"     },
      {"x=1\nx=<1, 2>",  "\tDefining Vector : x = <1, 2>\n"},
      {"x=1\nx=x+1\nx",  "\tScalar : 2\n"                  },
      {"=5",             "\tDefining Scalar : 5\n"         },
      {"=5\n_+1",        "\tScalar : 6\n"                  },
      {"x=min(1,2)",     "\tDefining Scalar : 1\n"         },
      {"x=min(1,2)\n?x", "\tScalar : 1\n"                  },
      {"x=(min(1,2))",   "\tDefining Scalar : 1\n"         },
      {"x=min(1,2)+0",   "\tDefining Scalar : x = 1\n"     },
      {"x=2\ny=+x",      "\tDefining Scalar : y = 2\n"     },
      {"x=2\ny=x\n?y",   "\tScalar : y = 2\n"              },
      {"123=4\n?123",    "\tScalar : 123 = 4\n"            },
      {"123=4\n123",     "\tScalar : 123\n"                },
      {"x=<1,2>[1]",     "\tDefining Scalar : x = 2\n"     },
  };
  for (const Row& row : kRows) EXPECT_EQ(Last(row.lines), row.output) << row.lines;
}

TEST(Names, AreLettersAndDigits) {
  const struct {
    const char* lines;
    std::string output;
  } kRows[] = {
      {"_=3",       kNotAssignable   },
      {" _ &= 3",   kNotAssignable   },
      {"_:Scalar",  kNotAssignable   },
      {"a b=3",     BadName("a b")   },
      {"a.b=3",     BadName("a.b")   },
      {"my_var=1",  BadName("my_var")},
      {"\tx=1",     BadName("\tx")   },
      {"a&b=1",     BadName("a&b")   },
      {"a&b&=1",    BadName("a&b&")  },
      {"~x=1",      BadName("~x")    },
      {"?x:Scalar", BadName("?x")    },
      {"a b:Foo",   BadName("a b")   },
      {"a:b=1",     BadName("a:b")   },
      {"v[1]=1",    BadName("v[1]")  },
      {"a +&=1",    BadName("a +")   },
  };
  for (const auto& row : kRows) EXPECT_EQ(Last(row.lines), row.output) << row.lines;
}

TEST(Names, OfFailedCommandsAreNotTaken) {
  EXPECT_EQ(Last("x=1\nx:=3\nx"), "\tScalar : 1\n");
  EXPECT_EQ(Last("x:=3"), "");
  EXPECT_EQ(Last("x&:=3"), "");
  EXPECT_EQ(Last("x=1\nx=y+1\nx"), "\tScalar : 1\n");
  EXPECT_EQ(Last("x=1\nx:Foo"), "\tError : Unknown type 'Foo'\n");
  EXPECT_EQ(Last("x=1\nx:Foo\nx"), "\tScalar : 1\n");
  EXPECT_EQ(Last("7\ny+1\n_"), "\tScalar : 7\n");
}

TEST(Signs, AreTakenAtTheirFirstPlace) {
  EXPECT_EQ(Last("x=a:=1"), "\tError : Unable to parse expression 'a:=1', no operator found\n");
  EXPECT_EQ(Last("x==1"), "\tError : Unable to parse expression '=1', no operator found\n");
  EXPECT_EQ(Last("x&=y=1"), "\tDefining Reference : x = y=1\n");
  EXPECT_EQ(Last("x=&y&z"), "\tDefining Reference : x = y&z\n");
  EXPECT_EQ(Last("x:Scalar:Foo"), "\tError : Unknown type 'Scalar:Foo'\n");
}

TEST(Declaration, MakesAnEmptyValue) {
  const Row kRows[] = {
      {"x:Symbol",        "\tDefining Symbol : x\n"            },
      {"x:Scalar",        "\tDefining Scalar : x = nan\n"      },
      {"x:Vector",        "\tDefining Vector : x = <>\n"       },
      {"x:Reference",     "\tDefining Reference : null\n"      },
      {" x :  Scalar  ",  "\tDefining Scalar : x = nan\n"      },
      {":Scalar",         "\tDefining Scalar : nan\n"          },
      {":Symbol",         "\tDefining Symbol : \n"             },
      {"x:",              "\tError : Unknown type ''\n"        },
      {"x:scalar",        "\tError : Unknown type 'scalar'\n"  },
      {"x:\tScalar",      "\tError : Unknown type '\tScalar'\n"},
      {"x:Symbol\n?x",    "\tSymbol : x\n"                     },
      {"x:Scalar\n_",     "\tScalar : nan\n"                   },
      {"x:Scalar\n?_",    "\tScalar : x = nan\n"               },
      {"x:Reference\n?x", "\tReference : null\n"               },
  };
  for (const Row& row : kRows) EXPECT_EQ(Last(row.lines), row.output) << row.lines;
}

TEST(PlainExpression, DeclaresANameThatStandsAlone) {
  EXPECT_EQ(Last("ab"), "\tDefining Symbol : ab\n");
  EXPECT_EQ(Last("ab\nab"), "\tSymbol : ab\n");
  EXPECT_EQ(Last("ab\n_"), "\tSymbol : ab\n");
  EXPECT_EQ(Last(" ab "), "\tDefining Symbol : ab\n");
  EXPECT_EQ(Last("1e"), "\tDefining Symbol : 1e\n");
  EXPECT_EQ(Last("min"), "\tDefining Symbol : min\n");
  EXPECT_EQ(Last("a b"), "\tError : Unable to parse expression 'a b', no operator found\n");
  EXPECT_EQ(Last("(ab)"), "\tError : Unknown symbol 'ab'\n");
  EXPECT_EQ(Last("_"), "\tReference : null\n");
  EXPECT_EQ(Last("2*3\n_*_"), "\tScalar : 36\n");
}

TEST(Deletion, ErasesOneAndForgetsTheLastResult) {
  const Row kRows[] = {
      {"x=1\n~x",     "\tScalar 'x' erased\n"                                         },
      {"x=1\n~x\n?x", "\tError : Unknown symbol 'x'\n"                                },
      {"x=1\n~x\n_",  "\tReference : null\n"                                          },
      {"x=1\n~y",     "\t'y' is undefined\n"                                          },
      {"x=1\n~y\n_",  "\tReference : null\n"                                          },
      {"x=1\n~ x",    "\t' x' is undefined\n"                                         },
      {"x=1\n~x ",    "\t'x ' is undefined\n"                                         },
      {"x=1\n~_",     "\tScalar '_' erased\n"                                         },
      {"~_",          "\tReference '_' erased\n"                                      },
      {"~_\n_",       "\tReference : null\n"                                          },
      {"r&=1\n~r",    "\tScalar 'r' erased\n"                                         },
      {"r&=y\n~r",    "\tReference 'r' erased\n"                                      },
      {" ~x",         "\tError : Unable to parse expression '~x', no operator found\n"},
      {"=5\n~;",
       "\tWarning : This command will erase all symbols.\n"
       "\t          Are you sure ? ([y|Enter]/n) \tAll symbols erased\n"              },
  };
  for (const Row& row : kRows) EXPECT_EQ(Last(row.lines), row.output) << row.lines;
}

TEST(Deletion, OfAllAsksFirst) {
  const std::string question = kQuestion;
  for (const char* answer : {"", "y", "Y"}) {
    EXPECT_EQ(Last("x=1\n~", {answer}), question + "\tAll symbols erased\n") << answer;
    EXPECT_EQ(Last("x=1\n~\n?x", {answer}), "\tError : Unknown symbol 'x'\n") << answer;
  }
  for (const char* answer : {"n", "N", "yes", " y", "y ", "no", " "}) {
    EXPECT_EQ(Last("x=1\n~", {answer}), question) << answer;
    EXPECT_EQ(Last("x=1\n~\n?x", {answer}), "\tScalar : x = 1\n") << answer;
  }
  EXPECT_EQ(Last("x=1\n~"), question + "\tAll symbols erased\n");
  EXPECT_EQ(Last("x=1\n~\n_", {"n"}), "\tReference : null\n");
  EXPECT_EQ(Last("x=1\n~\n_", {"y"}), "\tReference : null\n");
  EXPECT_EQ(Last("~;1;~", {"n", "y"}),
            question + "\tScalar : 1\n" + question + "\tAll symbols erased\n");
}

TEST(Deletion, TakesOneAnswerForOneQuestion) {
  Model model;
  std::deque<std::string> answers = {"n", "y", "left"};
  model.Run("~;~;~x;1", answers);
  EXPECT_EQ(answers, std::deque<std::string>{"left"});
}

TEST(Query, ForgetsTheLastResultOnlyWhenItSucceeds) {
  const Row kRows[] = {
      {"x=2\n?x",     "\tScalar : x = 2\n"             },
      {"x=2\n?x\n_",  "\tReference : null\n"           },
      {"x=2\n?y",     "\tError : Unknown symbol 'y'\n" },
      {"x=2\n?y\n_",  "\tScalar : 2\n"                 },
      {"x=2\n?\n_",   "\tReference : null\n"           },
      {"x=2\n? x",    "\tError : Unknown symbol ' x'\n"},
      {"x=2\n?_",     "\tScalar : x = 2\n"             },
      {"x=2\n?_\n?_", "\tReference : null\n"           },
      {"3\n?_",       "\tScalar : 3\n"                 },
  };
  for (const Row& row : kRows) EXPECT_EQ(Last(row.lines), row.output) << row.lines;
}

TEST(Help, IsOneScreen) {
  const std::string help = Last("?");
  EXPECT_EQ(help, HelpScreen());
  EXPECT_EQ(help.find("\tHelp :\n------------------------------\n\n"
                      "   Available syntaxes :\n"
                      "      Variable:Type : (re-)defines a symbol of name 'Variable'\n"
                      "                      and of type 'Type', not initialized.\n"),
            0u);
  EXPECT_EQ(std::count(help.begin(), help.end(), '\n'), 61);
  EXPECT_NE(help.find("      _ : recalls the last result.\n      \n   Expressions :\n"),
            std::string::npos);
  EXPECT_NE(help.find("is illegal.\n      \n   Operators :\n"), std::string::npos);
  EXPECT_NE(help.find("parenthesis '(' and ')'.\n      \n   Built-in types :\n"),
            std::string::npos);
  EXPECT_NE(help.find("over addition or substraction.\n"), std::string::npos);
  const std::string end =
      "                  and the following is available for assignment :\n"
      "                               ref &= expression\n";
  EXPECT_EQ(help.substr(help.size() - end.size()), end);
  EXPECT_EQ(Last("?;1"), help + "\tScalar : 1\n");
}

}  // namespace
}  // namespace Quarn::model

// Expressions: operators, calls, indexing, symbols, and all that is refused.
#include "tests/model/model.h"

#include <gtest/gtest.h>

#include <string>

#include "tests/model/model_test_support.h"

namespace Quarn::model {
namespace {

const char kMissingPlus[] = "\tError : Operator '+' is missing its operands\n";

std::string NoMatch(const std::string& types, const std::string& texts) {
  return "\tError : No match for operator '" + types + "' in :\n\t        \t" + texts + "\n";
}

TEST(Evaluate, FollowsPrioritiesFromLeftToRight) {
  const Row kRows[] = {
      {"1-2-3",            "\tScalar : -4\n"                   },
      {"8/4/2",            "\tScalar : 1\n"                    },
      {"8/4*2",            "\tScalar : 4\n"                    },
      {"1+2*3",            "\tScalar : 7\n"                    },
      {"(1+2)*3",          "\tScalar : 9\n"                    },
      {"(1)+(2)",          "\tScalar : 3\n"                    },
      {"((2))",            "\tScalar : 2\n"                    },
      {"  2  ",            "\tScalar : 2\n"                    },
      {"2*(-3)",           "\tScalar : -6\n"                   },
      {"-2*3",             "\tScalar : -6\n"                   },
      {"-2+3",             "\tScalar : 1\n"                    },
      {"+5",               "\tScalar : 5\n"                    },
      {"2*3",              "\tScalar : 6\n"                    },
      {"a=2\n a ",         "\tScalar : 2\n"                    },
      {"1/0",              "\tScalar : inf+\n"                 },
      {"-1/0",             "\tScalar : inf-\n"                 },
      {"0/0",              "\tScalar : nan\n"                  },
      {".",                "\tScalar : 0\n"                    },
      {"e5",               "\tScalar : 0\n"                    },
      {"5.+.5",            "\tScalar : 5.5\n"                  },
      {"1e309",            "\tScalar : 1.79769313486232e+308\n"},
      {"-<1,0,0>^<0,1,0>", "\tVector : <-0, -0, -1>\n"         },
  };
  for (const Row& row : kRows) EXPECT_EQ(Last(row.lines), row.output) << row.lines;
}

TEST(Evaluate, TakesALoneOperatorForAnOperator) {
  const Row kRows[] = {
      {"+",        kMissingPlus                                       },
      {"(+)",      kMissingPlus                                       },
      {"min(+,1)", kMissingPlus                                       },
      {"<1, + >",  kMissingPlus                                       },
      {"++a",      kMissingPlus                                       },
      {"1*(+)",    kMissingPlus                                       },
      {"--a",      "\tError : Operator '-' is missing its operands\n" },
      {"- -a",     "\tError : Operator '-' is missing its operands\n" },
      {" - ",      "\tError : Operator '-' is missing its operands\n" },
      {"!",        "\tError : Operator '!' is missing its operands\n" },
      {"[]",       "\tError : Operator '[]' is missing its operands\n"},
      {"1+ []",    "\tError : Operator '[]' is missing its operands\n"},
      {"[]!",      "\tError : Operator '[]' is missing its operands\n"},
      {"([])",     "\tError : Operator '[]' is missing its operands\n"},
  };
  for (const Row& row : kRows) EXPECT_EQ(Last(row.lines), row.output) << row.lines;
}

TEST(Evaluate, ReportsOperatorsWithoutAMatch) {
  const struct {
    const char* lines;
    std::string output;
  } kRows[] = {
      {"2*-3",              NoMatch("Scalar *",           "2 *")       },
      {"a=1\na--a",         NoMatch("Scalar -",           "1 -")       },
      {"4!",                NoMatch("Scalar !",           "4 !")       },
      {"2!3",               NoMatch("Scalar ! Scalar",    "2 ! 3")     },
      {"-2^2",              NoMatch("Scalar ^ Scalar",    "2 ^ 2")     },
      {"2^3!",              NoMatch("Scalar !",           "3 !")       },
      {"*2",                NoMatch("* Scalar",           "* 2")       },
      {"<1>*<2>",           NoMatch("Vector * Vector",    "<1> * <2>") },
      {"<1>/2",             NoMatch("Vector / Scalar",    "<1> / 2")   },
      {"1+<1>",             NoMatch("Scalar + Vector",    "1 + <1>")   },
      {"!<4>",              NoMatch("! Vector",           "! <4>")     },
      {"x:Symbol\nx+1",     NoMatch("Symbol + Scalar",    "x + 1")     },
      {"x:Symbol\n-x",      NoMatch("- Symbol",           "- x")       },
      {"x:Symbol\n_+1",     NoMatch("Symbol + Scalar",    "x + 1")     },
      {":Symbol\n_+1",      NoMatch("Symbol + Scalar",    " + 1")      },
      {"a:Symbol\n<a>+<1>", NoMatch("Symbol + Scalar",    "a + 1")     },
      {"2[1]",              NoMatch("Scalar [] Scalar",   "2 [] 1")    },
      {"v=<1>\nv[v]",       NoMatch("Vector [] Vector",   "<1> [] <1>")},
      {"_+1",               NoMatch("Reference + Scalar", "null + 1")  },
      {"1+_",               NoMatch("Scalar + Reference", "1 + null")  },
      {"-_",                NoMatch("- Reference",        "- null")    },
  };
  for (const auto& row : kRows) EXPECT_EQ(Last(row.lines), row.output) << row.lines;
}

TEST(Evaluate, RefusesWhatItCannotRead) {
  const Row kRows[] = {
      {" ",           "\tError : Empty symbol\n"                                            },
      {"()",          "\tError : Empty symbol\n"                                            },
      {"( )+1",       "\tError : Empty symbol\n"                                            },
      {"x=",          "\tError : Empty symbol\n"                                            },
      {"(a",          "\tError : Unterminated '('\n"                                        },
      {"a)",          "\tError : Too many closing ')'\n"                                    },
      {"(a)(b)",      "\tError : Too many closing ')'\n"                                    },
      {"(1>2",        "\tError : Unterminated '('\n"                                        },
      {"<1,2>[0]<3>", "\tError : Too many closing '>'\n"                                    },
      {"2 3",         "\tError : Unable to parse expression '2 3', no operator found\n"     },
      {" a b ",       "\tError : Unable to parse expression 'a b', no operator found\n"     },
      {"\t",          "\tError : Unable to parse expression '\t', no operator found\n"      },
      {"1.2.3",       "\tError : Unable to parse expression '1.2.3', no operator found\n"   },
      {"<]>[0]",      "\tError : Unable to parse expression '<]>[0]', no operator found\n"  },
      {"round_up",    "\tError : Unable to parse expression 'round_up', no operator found\n"},
      {"y+1",         "\tError : Unknown symbol 'y'\n"                                      },
      {"(y)",         "\tError : Unknown symbol 'y'\n"                                      },
      {"x=y",         "\tError : Unknown symbol 'y'\n"                                      },
      {"y+z",         "\tError : Unknown symbol 'y'\n"                                      },
      {"1+y",         "\tError : Unknown symbol 'y'\n"                                      },
      {"1e+5",        "\tError : Unknown symbol '1e'\n"                                     },
      {"x=1E5",       "\tError : Unknown symbol '1E5'\n"                                    },
      {"12a+1",       "\tError : Unknown symbol '12a'\n"                                    },
      {"//;+ //x",    "\tError : Operator '/' is missing its operands\n"                    },
  };
  for (const Row& row : kRows) EXPECT_EQ(Last(row.lines), row.output) << row.lines;
}

TEST(Evaluate, CallsFunctions) {
  const Row kRows[] = {
      {"min(2,2)",                 "\tScalar : 2\n"                        },
      {"max(2, 2)",                "\tScalar : 2\n"                        },
      {"min(1,2)",                 "\tScalar : 1\n"                        },
      {"max(1,2)",                 "\tScalar : 2\n"                        },
      {"min(0/0,1)",               "\tScalar : nan\n"                      },
      {"min(1,0/0)",               "\tScalar : 1\n"                        },
      {"max(0/0,1)",               "\tScalar : nan\n"                      },
      {"round(2.5)",               "\tScalar : 3\n"                        },
      {"round(-2.5)",              "\tScalar : -3\n"                       },
      {"round_up(-1.5)",           "\tScalar : -1\n"                       },
      {"round_down(-1.5)",         "\tScalar : -2\n"                       },
      {"round_up(-0.5)",           "\tScalar : -0\n"                       },
      {"rand(5,1)",                "\tScalar : 5\n"                        },
      {"rand(0/0,1)",              "\tScalar : nan\n"                      },
      {"rand(0,1/0)",              "\tScalar : nan\n"                      },
      {"rand(3,3)",                "\tScalar : 3\n"                        },
      {" min ( 1 , 2 ) ",          "\tScalar : 1\n"                        },
      {"min(1,,2)",                "\tScalar : 1\n"                        },
      {"min(,1,2)",                "\tScalar : 1\n"                        },
      {"min(1,2)(3)",              "\tScalar : 1\n"                        },
      {"min(1,2)x",                "\tScalar : 1\n"                        },
      {"min(min(3,2),max(1,4))+1", "\tScalar : 3\n"                        },
      {"r&=4\nround(r)",           "\tScalar : 4\n"                        },
      {"v=<1>\nv[min(0,1)]",       "\tError : Undefined function 'v[min'\n"},
  };
  for (const Row& row : kRows) EXPECT_EQ(Last(row.lines), row.output) << row.lines;
}

TEST(Evaluate, RefusesCallsThatFitNoSignature) {
  const std::string start = "\tError : No matching function call to :\n\t\t  ";
  const std::string two = "\t\tPossible candidates :\n\t\t  min(Scalar, Scalar)\n";
  EXPECT_EQ(Last("min(1)"), start + "min(Scalar)\n" + two);
  EXPECT_EQ(Last("min()"), start + "min()\n" + two);
  EXPECT_EQ(Last("min(1,2,3)"), start + "min(Scalar, Scalar, Scalar)\n" + two);
  EXPECT_EQ(Last("min(<1>,1)"), start + "min(Vector, Scalar)\n" + two);
  EXPECT_EQ(Last("min(1,_)"), start + "min(Scalar, Reference)\n" + two);
  EXPECT_EQ(Last("r&=y\nmin(r,1)"), start + "min(Reference, Scalar)\n" + two);
  EXPECT_EQ(Last("x:Symbol\nmin(x,1)"), start + "min(Symbol, Scalar)\n" + two);
  EXPECT_EQ(Last("rand(1)"),
            start + "rand(Scalar)\n" +
                "\t\tPossible candidates :\n\t\t  rand()\n\t\t  rand(Scalar, Scalar)\n");
}

TEST(Evaluate, RefusesCallsBeforeTheSignatureIsKnown) {
  const Row kRows[] = {
      {"f(1)",       "\tError : Undefined function 'f'\n"  },
      {"f(y",        "\tError : Unterminated '('\n"        },
      {"f (y)",      "\tError : Undefined function 'f'\n"  },
      {"<1>(2)",     "\tError : Undefined function '<1>'\n"},
      {"(<1>)[0]",   "\tError : Undefined function ''\n"   },
      {"Min(1,2)",   "\tError : Undefined function 'Min'\n"},
      {"min(y,z)",   "\tError : Unknown symbol 'y'\n"      },
      {"min(1, ,2)", "\tError : Empty symbol\n"            },
      {"rand( )",    "\tError : Empty symbol\n"            },
      {"min(<1,2)",  "\tError : Unterminated '<'\n"        },
      {"min(1],2)",  "\tError : Too many closing ']'\n"    },
  };
  for (const Row& row : kRows) EXPECT_EQ(Last(row.lines), row.output) << row.lines;
}

TEST(Evaluate, IndexesOnlyWhatStandsBeforeTheBracket) {
  const Row kRows[] = {
      {"v=<4,5>\nv[1]",      "\tScalar : 5\n"                                      },
      {"v=<4,5>\n v [ 1 ] ", "\tScalar : 5\n"                                      },
      {"v=<4,5>\nv[1][0]",   "\tScalar : 5\n"                                      },
      {"v=<4,5>\nv[1]y",     "\tScalar : 5\n"                                      },
      {"v=<4,5>\nv[1]+1",    "\tScalar : 6\n"                                      },
      {"v=<4,5>\nv[0+1]",    "\tScalar : 5\n"                                      },
      {"<4,5>[1]",           "\tScalar : 5\n"                                      },
      {"v[]",                "\tError : Illegal use of '[.]' with empty argument\n"},
      {"v[]2",               "\tError : Illegal use of '[.]' with empty argument\n"},
      {"[]2",                "\tError : Illegal use of '[.]' with empty argument\n"},
      {"[1]",                "\tError : Illegal use of '[.]' on empty object\n"    },
      {"[ ]",                "\tError : Illegal use of '[.]' on empty object\n"    },
      {"v[1]",               "\tError : Unknown symbol 'v'\n"                      },
      {"v=<1>\nv[ ]",        "\tError : Empty symbol\n"                            },
      {"v=<1>\nv[y]",        "\tError : Unknown symbol 'y'\n"                      },
      {"v=<1>\nv[[1]]",      "\tError : Unterminated '['\n"                        },
      {"v=<1>\nv[1",         "\tError : Unterminated '['\n"                        },
  };
  for (const Row& row : kRows) EXPECT_EQ(Last(row.lines), row.output) << row.lines;
}

TEST(Evaluate, WarnsAboutAbstractSymbolsUnderAName) {
  const char warning[] = "\tWarning : 'Symbol=Symbol' does nothing\n";
  EXPECT_EQ(Last("a:Symbol\nx=a"), warning);
  EXPECT_EQ(Last("a:Symbol\nx=((a))"), warning);
  EXPECT_EQ(Last("a:Symbol\nr&=a\nx=r"), warning);
  EXPECT_EQ(Last("a:Symbol\nx=a\n?x"), "\tError : Unknown symbol 'x'\n");
  EXPECT_EQ(Last("a:Symbol\n=a"), "\tDefining Symbol : a\n");
  EXPECT_EQ(Last("a:Symbol\nx=<a>"), "\tDefining Vector : x = <a>\n");
}

}  // namespace
}  // namespace Quarn::model

// What the types do, and in which order references are evaluated.
#include <gtest/gtest.h>

#include <cstddef>
#include <deque>
#include <string>

#include "tests/model/model.h"
#include "tests/model/model_test_support.h"

namespace Quarn::model {
namespace {

const char kEmptyIndex[] = "\tError : Cannot index an empty Vector\n";
const char kCross[] = "\tError : The cross product '^' is only available for 3-Vectors\n";

std::string Mixing(const std::string& first, const std::string& second) {
  return "\tError : Non-homogeneous Vectors are not allowed.\n\t        Trying to mix " + first +
         " with " + second + "\n";
}

TEST(Scalar, HasAFactorialThatStandsBefore) {
  EXPECT_EQ(Last("!4"), "\tScalar : 24\n");
  EXPECT_EQ(Last("!1"), "\tScalar : 1\n");
  EXPECT_EQ(Last("!1.05"), "\tScalar : 1\n");
  EXPECT_EQ(Last("!3.95"), "\tScalar : 24\n");
  EXPECT_EQ(Last("!4+1"), "\tScalar : 25\n");
  EXPECT_EQ(Last("!171"), "\tScalar : inf+\n");
  EXPECT_EQ(Last("-!3"), "\tScalar : -6\n");
}

TEST(Scalar, IsOutsideWhenAFactorialHasNoEnd) {
  for (const char* line : {"!0", "!2.5", "!0.5", "!(-1)", "!(1/0)", "!(0/0)", "!1e9"}) {
    EXPECT_THROW(Last(line), Outside) << line;
  }
}

TEST(Scalar, DrawsNothingForBoundsThatAreWrong) {
  EXPECT_EQ(Last("rand(5,1);rand(0/0,1);rand(1,1/0);rand(0,2147483647)"),
            "\tScalar : 5\n\tScalar : nan\n\tScalar : nan\n\tScalar : 1\n");
}

TEST(Scalar, ReachesBothBoundsOfRand) {
  std::deque<std::string> none;
  EXPECT_EQ(Model([] { return 0; }).Run("rand();rand(2,7)", none), "\tScalar : 0\n\tScalar : 2\n");
  EXPECT_EQ(Model([] { return 2147483647; }).Run("rand();rand(2,7)", none),
            "\tScalar : 1\n\tScalar : 7\n");
}

TEST(Vector, CalculatesElementByElement) {
  const Row kRows[] = {
      {"<1, 2> + <3, 4>",       "\tVector : <4, 6>\n"             },
      {"<1, 2> - <3, 4>",       "\tVector : <-2, -2>\n"           },
      {"2 * <1, 2>",            "\tVector : <2, 4>\n"             },
      {"<1, 2> * 2",            "\tVector : <2, 4>\n"             },
      {"-<1, -2>",              "\tVector : <-1, 2>\n"            },
      {"+<1, -2>",              "\tVector : <1, -2>\n"            },
      {"<1, 0, 0> ^ <0, 1, 0>", "\tVector : <0, 0, 1>\n"          },
      {"<1,2,3>^<4,5,6>",       "\tVector : <-3, 6, -3>\n"        },
      {"2*<<1,2>,<3,4>>",       "\tVector : <<2, 4>, <6, 8>>\n"   },
      {"-<<1>>",                "\tVector : <<-1>>\n"             },
      {"<>+<>",                 "\tVector : <>\n"                 },
      {"<>*2",                  "\tVector : <>\n"                 },
      {"<>",                    "\tVector : <>\n"                 },
      {"<,>",                   "\tVector : <>\n"                 },
      {"<,1,>",                 "\tVector : <1>\n"                },
      {"<  1+1 ,,3>",           "\tVector : <2, 3>\n"             },
      {"v:Vector",              "\tDefining Vector : v = <>\n"    },
      {"v=<1,2>",               "\tDefining Vector : v = <1, 2>\n"},
      {":Symbol\n<_,_>",        "\tVector : <, >\n"               },
  };
  for (const Row& row : kRows) EXPECT_EQ(Last(row.lines), row.output) << row.lines;
}

TEST(Vector, RefusesLengthsThatDoNotFit) {
  const Row kRows[] = {
      {"<1, 2> + <1, 2, 3>", "\tError : Cannot add two Vectors of different length (2 and 3)\n"      },
      {"<> - <1>",           "\tError : Cannot substract two Vectors of different length (0 and 1)\n"},
      {"<1, 2> ^ <3, 4>",    kCross                                                                  },
      {"<1, 2, 3> ^ <3, 4>", kCross                                                                  },
      {"<> ^ <>",            kCross                                                                  },
      {"< >",                "\tError : Empty symbol\n"                                              },
      {"<1, >",              "\tError : Empty symbol\n"                                              },
      {"<y,1>",              "\tError : Unknown symbol 'y'\n"                                        },
      {"<1,(>",              "\tError : Unterminated '('\n"                                          },
  };
  for (const Row& row : kRows) EXPECT_EQ(Last(row.lines), row.output) << row.lines;
}

TEST(Vector, IsHomogeneous) {
  const struct {
    const char* lines;
    std::string output;
  } kRows[] = {
      {"<1, <2, 3>>",      Mixing("Scalar",             "2-Vector")},
      {"<<1, 2>, <1, 2, 3>>",                  Mixing("2-Vector",                         "3-Vector")},
      {"<<>, <1>>",       Mixing("0-Vector",          "1-Vector")},
      {"<1, <2>, y>",Mixing("Scalar",  "1-Vector")},
      {"x:Symbol\n<1,x>",      Mixing("Scalar",                        "Symbol")},
      {"<1, &y>",                  Mixing("Scalar",                             "Reference")},
      {"<_, 1>",         Mixing("Scalar",             "Reference")},
      {"<&1>",Mixing("","Scalar")},
      {"<_>",           Mixing("",               "Reference")},
      {"<&y, &1>",                  Mixing("",                                        "Reference")},
      {"<<1>, &<1>>",         Mixing("1-Vector",                                                                "Vector")},
      {"<&<1>, 1>",Mixing("Scalar","Vector")},
      {"<1, &2>",         "\tVector : <1, 2>\n"         },
      {"<&2, 1>",                  "\tVector : <2, 1>\n"                                },
      {"a=1\nv=<0,&a>\na=5\nv",         "\tVector : <0, 5>\n"},
      {"a=1\nv=<0,&a>\n~a\nv*2",     "\tVector : <0, (a)*(2)>\n"                       },
  };
  for (const auto& row : kRows) EXPECT_EQ(Last(row.lines), row.output) << row.lines;
}

TEST(Vector, WrapsTheIndex) {
  const struct {
    const char* index;
    const char* element;
  } kRows[] = {
      {"0",          "10"},
      {"3",          "10"},
      {"-3",         "10"},
      {"-1",         "30"},
      {"1.5",        "30"},
      {"2.6",        "10"},
      {"-0.4",       "10"},
      {"-0.5",       "30"},
      {"0/0",        "10"},
      {"4294967296", "20"},
      {"2.5",        "10"},
      {"1e20",       "20"},
      {"-1e20",      "30"},
      {"-100",       "30"},
      {"0.49",       "10"},
  };
  for (const auto& row : kRows) {
    const std::string line = std::string("<10, 20, 30>[") + row.index + "]";
    EXPECT_EQ(Last(line), std::string("\tScalar : ") + row.element + "\n") << row.index;
  }
}

TEST(Vector, RefusesAnyIndexWhenItIsEmpty) {
  for (const char* line : {"<>[0]", "<>[5]", "<>[-1]", "<>[0/0]", "<>[1/0]", "v:Vector\nv[0]"}) {
    EXPECT_EQ(Last(line), kEmptyIndex) << line;
  }
}

TEST(Vector, IsOutsideWhenTheIndexIsInfinite) {
  EXPECT_THROW(Last("<1>[1/0]"), Outside);
  EXPECT_THROW(Last("<1,2>[-1/0]"), Outside);
}

TEST(Reference, IsEvaluatedAtEachUse) {
  const Row kRows[] = {
      {"r:Reference",            "\tDefining Reference : null\n"     },
      {"r&=y + 1",               "\tDefining Reference : r = y + 1\n"},
      {"x=1\nr=&x + 1\n?r",      "\tScalar : r = 2\n"                },
      {"x=1\nr&=x + 1\nx=5\n?r", "\tScalar : r = 6\n"                },
      {"x=1\nr=&x\nx=<1>\n?r",   "\tVector : r = <1>\n"              },
      {"x=1\nr&=x\nr+1",         "\tScalar : 2\n"                    },
      {"x=1\nr&=x\ns&=r\n-s",    "\tScalar : -1\n"                   },
      {"&  y  ",                 "\tReference : y\n"                 },
      {"r&=  y  ",               "\tDefining Reference : r =   y  \n"},
      {"&",                      "\tReference : null\n"              },
      {"r&=",                    "\tDefining Reference : null\n"     },
      {"r&= ",                   "\tDefining Reference : r =  \n"    },
      {"r&=(\nr",                "\tReference : (\n"                 },
      {"x=1\nr&=x\nt=r\nx=2\nt", "\tScalar : 2\n"                    },
      {"x=1\nr&=x\nt=r",         "\tDefining Reference : t = 1\n"    },
      {"a:Symbol\nr&=a\nr",      "\tSymbol : a\n"                    },
      {"v=<1,&2>\nt=v[1]",       "\tDefining Reference : t = 2\n"    },
  };
  for (const Row& row : kRows) EXPECT_EQ(Last(row.lines), row.output) << row.lines;
}

TEST(Reference, DefersABinaryOperatorWhenItFails) {
  const Row kRows[] = {
      {"&y+1",                   "\tReference : (y)+(1)\n"                                              },
      {"1+(&y)",                 "\tReference : (1)+(y)\n"                                              },
      {"x=&y*<1,2>",             "\tDefining Reference : x = (y)*(<1, 2>)\n"                            },
      {"r&=y\nr-r-1",            "\tReference : ((y)-(y))-(1)\n"                                        },
      {"r&=y\nx=r+1\ny=4\nx",    "\tScalar : 5\n"                                                       },
      {"r&=y\nr+_",              "\tReference : (y)+(y)\n"                                              },
      {"r&=y\n~q\nr+_",          "\tReference : (y)+(null)\n"                                           },
      {"r&=y\n<1>[r]",           "\tReference : (<1>)[](y)\n"                                           },
      {"y:Reference\nr&=y\nr+1", "\tReference : (null)+(1)\n"                                           },
      {"r&=y\ns&=r+1\ns*2",      "\tReference : ((y)+(1))*(2)\n"                                        },
      {"r&=y\n-r",               "\tError : No match for operator '- Reference' in :\n\t        \t- y\n"},
      {"r&=y\nr!",               "\tError : No match for operator 'Reference !' in :\n\t        \ty !\n"},
      {"r&=y\n<1>/r",
       "\tError : No match for operator 'Vector / Reference' in :\n\t        \t<1> / y\n"               },
      {"y:Reference\ny+1",
       "\tError : No match for operator 'Reference + Scalar' in :\n\t        \tnull + 1\n"              },
  };
  for (const Row& row : kRows) EXPECT_EQ(Last(row.lines), row.output) << row.lines;
}

// r draws once for each of its evaluations, and shows the number of the draw.
TEST(Reference, IsEvaluatedInAFixedOrder) {
  const std::string r = "r=&rand(0,2147483647)\n";  // printed with draw 1
  const struct {
    const char* line;
    std::string output;
  } kRows[] = {
      {"r",                     "\tScalar : 3\n"                                                               },
      {"?r",                    "\tScalar : r = 3\n"                                                           },
      {"r+1",                   "\tScalar : 3\n"                                                               },
      {"r-r",                   "\tScalar : -1\n"                                                              },
      {"=r",                    "\tDefining Reference : 2\n"                                                   },
      {"t=r",                   "\tDefining Reference : t = 3\n"                                               },
      {"-r",                    "\tScalar : -2\n"                                                              },
      {"min(r,r)",              "\tScalar : 2\n"                                                               },
      {"max(r,r)",              "\tScalar : 3\n"                                                               },
      {"<0,r>",                 "\tVector : <0, 3>\n"                                                          },
      {"<0,r,r>",               "\tVector : <0, 4, 5>\n"                                                       },
      {"r^r",                   "\tError : No match for operator 'Scalar ^ Scalar' in :\n\t        \t5 ^ 6\n"  },
      {"r!r",                   "\tError : No match for operator 'Scalar ! Scalar' in :\n\t        \t4 ! 5\n"  },
      {"r+<1>",                 "\tError : No match for operator 'Scalar + Vector' in :\n\t        \t4 + <1>\n"},
      {"*r",                    "\tError : No match for operator '* Scalar' in :\n\t        \t* 3\n"           },
      {"r*",                    "\tError : No match for operator 'Scalar *' in :\n\t        \t3 *\n"           },
      {"r+&y",                  "\tReference : (3)+(y)\n"                                                      },
      {"&y+r",                  "\tReference : (y)+(2)\n"                                                      },
      {"~r;rand(0,2147483647)", "\tScalar 'r' erased\n\tScalar : 3\n"                                          },
  };
  for (const auto& row : kRows) EXPECT_EQ(Last(r + row.line), row.output) << row.line;
}

TEST(Reference, IsRefusedWhenItLeadsBackToItself) {
  const Row kRows[] = {
      {"r&=r",                        "\tDefining Reference : r = r\n"                              },
      {"r&=r+1",                      "\tDefining Reference : r = r+1\n"                            },
      {"r=&r",                        "\tDefining Reference : r = r\n"                              },
      {"r&=&r",                       "\tDefining Reference : r = &r\n"                             },
      {"r&=s\ns&=r\n?s",              "\tReference : s = r\n"                                       },
      {"r&=r\nr",                     "\tReference : r\n"                                           },
      {"r&=r\n~r",                    "\tReference 'r' erased\n"                                    },
      {"r&=r\nr+1",                   "\tError : Reference 'r' leads back to itself\n"              },
      {"r&=r\nx=r",                   "\tError : Reference 'r' leads back to itself\n"              },
      {"r&=r\nx=r\n?x",               "\tError : Unknown symbol 'x'\n"                              },
      {"r&=<1,&r>\n-r",               "\tError : Reference '<1,&r>' leads back to itself\n"         },
      {"r&=min(s,1)\ns&=r\nmin(1,s)", "\tError : Reference 'r' leads back to itself\n"              },
      {"r&=r\n<1,r>",                 "\tError : Reference 'r' leads back to itself\n"              },
      {"r&=r\nr+1;2",                 "\tError : Reference 'r' leads back to itself\n\tScalar : 2\n"},
      {"r&=r\nr=1\nr+1",              "\tScalar : 2\n"                                              },
  };
  for (const Row& row : kRows) EXPECT_EQ(Last(row.lines), row.output) << row.lines;
}

TEST(Reference, InARingDrawsUntilItIsMetAgain) {
  const std::string ring = "r&=rand(0,2147483647)+r\n";
  EXPECT_EQ(Last(ring + "r+1"),
            "\tError : Reference 'rand(0,2147483647)+r' leads back to itself\n");
  // Drawn when it was defined, and then for the sum.
  EXPECT_EQ(Last(ring + "r+1\nrand(0,2147483647)"), "\tScalar : 3\n");
}

TEST(Reference, InARingAmongElementsShowsItsExpression) {
  EXPECT_EQ(Last("r=1\nv=<1,&r,2>\nr&=r\nv"), "\tVector : <1, r, 2>\n");
  EXPECT_EQ(Last("r=1\nv=<1,&r>\nr=v\nr"), "\tVector : <1, <1, r>>\n");
}

TEST(Model, IsOutsideWhenALineCostsTooMuch) {
  const auto nested = [](std::size_t levels) {
    return std::string(levels, '(') + "1" + std::string(levels, ')');
  };
  EXPECT_EQ(Last(nested(200)), "\tScalar : 1\n");
  EXPECT_THROW(Last(nested(2000)), Outside);
  std::string doubling = "v=<1>\n";
  for (int i = 0; i < 40; ++i) doubling += "v=<v,v>\n";
  EXPECT_THROW(Last(doubling), Outside);
}

}  // namespace
}  // namespace Quarn::model

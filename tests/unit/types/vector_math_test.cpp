// Tests of the arithmetic of vectors: element by element, cross product, indexing.
#include "types/vector_math.h"

#include <gtest/gtest.h>
#include <signal.h>
#include <unistd.h>

#include <limits>
#include <string>

#include "tests/support/foreign_types.h"
#include "tests/support/session.h"
#include "types/lift.h"

namespace Quarn {
namespace {

const char kOnlyFor3[] = "\tError : The cross product '^' is only available for 3-Vectors";
const char kEmpty[] = "\tError : Cannot index an empty Vector";

TEST(VectorMath, GoesElementByElement) {
  Session session;
  const ValueRow kRows[] = {
      {"<1, 2>+<3, 4>",          "Vector : <4, 6>"          },
      {"<1, 2>-<3, 5>",          "Vector : <-2, -3>"        },
      {"2*<1, 2>",               "Vector : <2, 4>"          },
      {"<1, 2>*2",               "Vector : <2, 4>"          },
      {"-<1, -2>",               "Vector : <-1, 2>"         },
      {"+<1, -2>",               "Vector : <1, -2>"         },
      {"<>+<>",                  "Vector : <>"              },
      {"<>-<>",                  "Vector : <>"              },
      {"2*<<1, 2>, <3, 4>>",     "Vector : <<2, 4>, <6, 8>>"},
      {"<<1>, <2>>*3",           "Vector : <<3>, <6>>"      },
      {"<<1>, <2>>+<<3>, <4>>",  "Vector : <<4>, <6>>"      },
      {"-<<1>, <2>>",            "Vector : <<-1>, <-2>>"    },
      {"<1, 2>+<3, 4>*2-<1, 1>", "Vector : <6, 9>"          },
      {"(1/0)*<1, 0>",           "Vector : <inf+, nan>"     },
  };
  ExpectValues(session, kRows);
}

TEST(VectorMath, HasNoOtherOperators) {
  Session session;
  const NoMatchRow kRows[] = {
      {"<1, 2>*<1, 2>", "Vector * Vector",  "<1, 2> * <1, 2>"}, // no dot product
      {"<1, 2>/2",      "Vector / Scalar",  "<1, 2> / 2"     },
      {"2/<1>",         "Scalar / Vector",  "2 / <1>"        },
      {"<1>/<1>",       "Vector / Vector",  "<1> / <1>"      },
      {"<1>+1",         "Vector + Scalar",  "<1> + 1"        },
      {"1+<1>",         "Scalar + Vector",  "1 + <1>"        },
      {"1-<1>",         "Scalar - Vector",  "1 - <1>"        },
      {"!<1>",          "! Vector",         "! <1>"          },
      {"<1>!",          "Vector !",         "<1> !"          },
      {"2^<1>",         "Scalar ^ Vector",  "2 ^ <1>"        },
      {"<1>[<0>]",      "Vector [] Vector", "<1> [] <0>"     },
  };
  ExpectNoMatches(session, kRows);
}

TEST(VectorMath, DoesToElementsWhatIsRegisteredForScalars) {
  Session session;
  const auto second = [](const s_refptr<Symbol>&, const s_refptr<Symbol>& right, s_str&) {
    return right;
  };
  session.GetState().AddBinary({
      {"Scalar", "+", "Scalar", second},
      {"Scalar", "*", "Scalar", second}
  });
  session.GetState().AddRightUnary({
      {"-", "Scalar", Copy}
  });
  const ValueRow kRows[] = {
      {"<1, 2>+<3, 4>", "Vector : <3, 4>"  },
      {"<1, 2>-<3, 5>", "Vector : <-2, -3>"},
      {"2*<3, 4>",      "Vector : <3, 4>"  },
      {"<3, 4>*2",      "Vector : <2, 2>"  },
      {"-<1, 2>",       "Vector : <1, 2>"  },
  };
  ExpectValues(session, kRows);
}

TEST(VectorMath, StopsAtTheFirstElementThatFails) {
  Session session;
  session.Type("a;b;v=<<1>, <2>>");
  const NoMatchRow kRows[] = {
      {"<a, b>+<1, 2>",       "Symbol + Scalar", "a + 1"           },
      {"<1, 2>-<a, b>",       "Scalar - Symbol", "1 - a"           },
      {"2*<a, b>",            "Scalar * Symbol", "2 * a"           },
      {"<a, b>*2",            "Symbol * Scalar", "a * 2"           },
      {"-<a, b>",             "- Symbol",        "- a"             },
      {"v+<1, 2>",            "Vector + Scalar", "<1> + 1"         },
      {"<a, a, a>^<1, 2, 3>", "Symbol * Scalar", "a * 3"           },
      {"<1, 2, 3>^<a, a, a>", "Scalar * Symbol", "2 * a"           },
      {"v+<<1>, <2>>*<1>",    "Vector * Vector", "<<1>, <2>> * <1>"},
  };
  ExpectNoMatches(session, kRows);
}

TEST(VectorMath, AsksForEqualLengths) {
  Session session;
  const std::string add = "\tError : Cannot add two Vectors of different length (";
  const std::string substract = "\tError : Cannot substract two Vectors of different length (";
  const ValueRow kRows[] = {
      {"<1, 2>+<1, 2, 3>",            add + "2 and 3)"      },
      {"<1, 2, 3>+<1, 2>",            add + "3 and 2)"      },
      {"<>+<1>",                      add + "0 and 1)"      },
      {"<1, 2>-<1>",                  substract + "2 and 1)"},
      {"<<1>, <2>>+<<1, 2>, <3, 4>>", add + "1 and 2)"      }, // an element fails
  };
  ExpectValues(session, kRows);
}

// The lengths are compared before any element is evaluated.
TEST(VectorMath, ComparesLengthsBeforeElements) {
  Session session;
  std::string log;
  RegisterTap(session.GetState(), log);
  session.Type("v=<0, &tap(1)>");
  log.clear();
  EXPECT_FALSE(session.Parse("v+<1>"));
  EXPECT_FALSE(session.Parse("v^<1>"));
  EXPECT_EQ(log, "");
}

TEST(VectorMath, MultipliesCrosswiseInThreeDimensions) {
  Session session;
  const ValueRow kRows[] = {
      {"<1, 0, 0>^<0, 1, 0>",       "Vector : <0, 0, 1>"  },
      {"<0, 1, 0>^<1, 0, 0>",       "Vector : <0, 0, -1>" },
      {"<1, 2, 3>^<4, 5, 6>",       "Vector : <-3, 6, -3>"},
      {"<1, 2>^<3, 4>",             kOnlyFor3             },
      {"<1, 2, 3>^<1, 2>",          kOnlyFor3             },
      {"<1, 2>^<1, 2, 3>",          kOnlyFor3             },
      {"<1, 2, 3, 4>^<1, 2, 3, 4>", kOnlyFor3             },
      {"<>^<>",                     kOnlyFor3             },
      {"2*<1, 0, 0>^<0, 1, 0>",     "Vector : <0, 0, 2>"  }, // "^" first
  };
  ExpectValues(session, kRows);
}

TEST(VectorMath, MultipliesCrosswiseInTheOrderThatIsWritten) {
  Session session;
  std::string log;
  RegisterTap(session.GetState(), log);
  session.Type("a=<&tap(10), &tap(11), 0+12>;b=<&tap(20), 0+21, &tap(22)>");
  log.clear();
  session.Parse("a^b");
  // a1 b2 - a2 b1, a2 b0 - a0 b2, a0 b1 - a1 b0
  EXPECT_EQ(log, "11 22 20 10 22 10 11 20 ");
}

TEST(VectorMath, IndexWrapsAtBothEnds) {
  Session session;
  session.Type("v=<10, 20, 30>");
  const ValueRow kRows[] = {
      {"v[0]",    "Scalar : 10"},
      {"v[3]",    "Scalar : 10"},
      {"v[-3]",   "Scalar : 10"},
      {"v[-1]",   "Scalar : 30"},
      {"v[1.5]",  "Scalar : 30"}, // halves away from zero
      {"v[-1.5]", "Scalar : 20"},
      {"v[0.49]", "Scalar : 10"},
      {"v[-0.4]", "Scalar : 10"},
      {"v[2.6]",  "Scalar : 10"},
      {"v[-2.5]", "Scalar : 10"},
      {"v[4]",    "Scalar : 20"},
      {"v[0/0]",  "Scalar : 10"}, // what is no number is the first
      {"<7>[5]",  "Scalar : 7" },
  };
  ExpectValues(session, kRows);
}

// 10 is 1 modulo 3, and so are its powers; 2^53 is 2.
TEST(VectorMath, IndexWrapsExactlyHoweverLargeAndAtOnce) {
  Session session;
  session.Type("v=<10, 20, 30>");
  const ValueRow kRows[] = {
      {"v[1e20]",              "Scalar : 20"},
      {"v[-1e20]",             "Scalar : 30"},
      {"v[1e22]",              "Scalar : 20"},
      {"v[9007199254740992]",  "Scalar : 30"},
      {"v[-9007199254740992]", "Scalar : 20"},
      {"v[4294967296]",        "Scalar : 20"}, // 2^32 is 1 modulo 3
      {"v[2147483648]",        "Scalar : 30"},
      {"<5, 7>[1e308]",        "Scalar : 5" }, // every large number is even
      {"<5, 7>[-1e308]",       "Scalar : 5" },
  };
  ExpectValues(session, kRows);
}

TEST(VectorMath, IndexGivesAnUnnamedCopy) {
  Session session;
  const Values elements = {s_refptr<Symbol>(new Scalar("x", 1))};
  const s_refptr<Symbol> vector(new Vector("v", elements));
  s_str error;
  const s_refptr<Symbol> element = SelectElement(session.GetState(), vector, NewNumber(0), error);
  EXPECT_EQ(element->ToString().Get(), "1");
  EXPECT_EQ(vector->ToString().Get(), "v = <x = 1>");
  EXPECT_NE(element.Get(), elements[0U].Get());
}

TEST(VectorMath, IndexOfAnEmptyVectorIsAnErrorWhateverItIs) {
  Session session;
  for (const char* index : {"0", "1", "-1", "0/0", "1/0", "-1/0", "1e300"}) {
    EXPECT_EQ(session.Evaluate(std::string("<>[") + index + "]"), kEmpty) << index;
  }
}

// An infinite index never comes into range, and is meant not to.
TEST(VectorMathDeathTest, AnInfiniteIndexNeverReturns) {
  GTEST_FLAG_SET(death_test_style, "threadsafe");
  constexpr double kInfinity = std::numeric_limits<double>::infinity();
  for (double index : {kInfinity, -kInfinity}) {
    EXPECT_EXIT(
        {
          Session session;
          const s_refptr<Symbol> vector = session.Parse("<1, 2>");
          s_str error;
          ualarm(300000, 0);
          SelectElement(session.GetState(), vector, NewNumber(index), error);
        },
        testing::KilledBySignal(SIGALRM), "")
        << index;
  }
}

TEST(VectorMath, AnInfiniteIndexIntoNothingIsAnErrorLikeOthers) {
  Session session;
  EXPECT_EQ(session.Evaluate("<>[1/0]"), kEmpty);
  EXPECT_EQ(session.Evaluate("<>[-1/0]"), kEmpty);
}

TEST(VectorMath, ResultsHaveNoNameButThatOfPlus) {
  Session session;
  State& state = session.GetState();
  const s_refptr<Symbol> v = session.Parse("<1, 2, 3>", "v");
  s_str error;
  EXPECT_EQ(state.ApplyRightUnaryOperator("+", v, error)->ToString().Get(), "v = <1, 2, 3>");
  EXPECT_EQ(state.ApplyRightUnaryOperator("-", v, error)->ToString().Get(), "<-1, -2, -3>");
  EXPECT_EQ(state.ApplyBinaryOperator("+", v, v, error)->ToString().Get(), "<2, 4, 6>");
  EXPECT_EQ(state.ApplyBinaryOperator("^", v, v, error)->ToString().Get(), "<0, 0, 0>");
  EXPECT_EQ(v->ToString().Get(), "v = <1, 2, 3>");
}

TEST(VectorMath, ReportsOnALineOfItsOwn) {
  Session session;
  const s_refptr<Symbol> one = session.Parse("<1>"), two = session.Parse("<1, 2>");
  s_str error;
  AddElements(session.GetState(), one, two, error);
  SubtractElements(session.GetState(), one, two, error);
  CrossProduct(session.GetState(), one, two, error);
  SelectElement(session.GetState(), session.Parse("<>"), NewNumber(0), error);
  EXPECT_EQ(error.Get(),
            "\tError : Cannot add two Vectors of different length (1 and 2)\n"
            "\tError : Cannot substract two Vectors of different length (1 and 2)\n" +
                std::string(kOnlyFor3) + "\n" + kEmpty);
}

TEST(VectorMath, AnElementThatIsAReferenceWithoutAValueIsDeferred) {
  Session session;
  session.Type("x=1;v=<0, &x>;~x");
  EXPECT_EQ(session.Evaluate("v+<1, 2>"), "Vector : <1, (x)+(2)>");
  EXPECT_EQ(session.Evaluate("2*v"), "Vector : <0, (2)*(x)>");
  EXPECT_EQ(session.Evaluate("-v"),
            "\tError : No match for operator '- Reference' in :\n\t        \t- x");
}

}  // namespace
}  // namespace Quarn

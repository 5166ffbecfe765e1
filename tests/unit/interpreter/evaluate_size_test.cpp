// Tests of long and deep expressions, which cost what they weigh, of the limit of memory, and of
// references that lead back to themselves.
#include <gtest/gtest.h>

#include <string>

#include "tests/support/sanitizers.h"
#include "tests/support/session.h"
#include "types/value.h"

namespace Quarn {
namespace {

constexpr char kTooDeep[] = "\tError : Expression is nested too deeply\n";
constexpr int kDeep = kSanitized ? 300 : 10000;
constexpr int kVeryDeep = kSanitized ? 20000 : 1000000;

std::string Repeat(const std::string& text, int times) {
  std::string repeated;
  for (int i = 0; i < times; ++i) repeated += text;
  return repeated;
}

std::string Nest(const std::string& before, const std::string& core, const std::string& behind,
                 int levels) {
  return Repeat(before, levels) + core + Repeat(behind, levels);
}

TEST(LongExpression, SumsAHundredThousandTerms) {
  Session session;
  EXPECT_EQ(session.Evaluate("1" + Repeat("+1", 99999)), "Scalar : 100000");
  EXPECT_EQ(session.Evaluate("1" + Repeat("-1", 99999)), "Scalar : -99998");
  EXPECT_EQ(session.Evaluate("1" + Repeat("*1+1", 50000)), "Scalar : 50001");
}

TEST(LongExpression, FailsAtItsEndAsAnywhere) {
  Session session;
  EXPECT_EQ(session.Evaluate("1" + Repeat("+1", 99999) + "+zz"), "\tError : Unknown symbol 'zz'");
  EXPECT_EQ(session.Evaluate("1" + Repeat("+1", 99999) + ")"), "\tError : Too many closing ')'");
}

TEST(LongExpression, HoldsVectorsAndCallsOfManyElements) {
  Session session;
  EXPECT_EQ(session.Evaluate("<1" + Repeat(", 1", 9999) + ">[9999]"), "Scalar : 1");
  EXPECT_TRUE(session.Evaluate("min(1" + Repeat(",1", 9999) + ")")
                  .starts_with("\tError : No matching function call to :\n\t\t  min(Scalar, S"));
}

TEST(DeepExpression, WorksToTenThousandLevelsOfEachKind) {
  Session session;
  EXPECT_EQ(session.Evaluate(Nest("(", "1", ")", 10000)), "Scalar : 1");
  EXPECT_EQ(session.Evaluate(Nest("(1+", "1", ")", 10000)), "Scalar : 10001");
  EXPECT_EQ(session.Evaluate(Nest("round(", "1", ")", kDeep)), "Scalar : 1");
  EXPECT_EQ(session.Evaluate(Nest("<", "1", ">", kDeep)), "Vector : " + Nest("<", "1", ">", kDeep));
}

TEST(DeepExpression, WorksToTenThousandReferencesOnReferences) {
  Session session;
  // From the end, since a definition shows its value.
  for (int i = kDeep; i > 0; --i) {
    session.Type("r" + std::to_string(i) + "=&r" + std::to_string(i - 1));
  }
  session.GetState().ProcessLine("r0=1");
  EXPECT_EQ(session.Type("r" + std::to_string(kDeep) + "+1"), "\tScalar : 2\n");
}

TEST(DeepExpression, HasItsErrorWhereverThatIs) {
  Session session;
  EXPECT_EQ(session.Evaluate(Nest("<", "zz", ">", kVeryDeep)), "\tError : Unknown symbol 'zz'");
  EXPECT_TRUE(session.Evaluate(Nest("round(", "<1>", ")", kVeryDeep))
                  .starts_with("\tError : No matching function call to :\n\t\t  round(Vector)\n"));
  EXPECT_EQ(session.Evaluate(Nest("<1>[", "0", "]", kVeryDeep)), "\tError : Unterminated '['");
  EXPECT_EQ(session.Evaluate(Nest("(", "1", ")", kVeryDeep) + ")"),
            "\tError : Too many closing ')'");
  EXPECT_EQ(session.Evaluate(Nest("round(", "1", ")", kVeryDeep)), "Scalar : 1");
}

TEST(MemoryLimit, EndsWhatNeedsMoreAndChangesNothing) {
  Session session;
  session.GetState().SetLimits({.memory = kSanitized ? 1U << 16 : 1U << 20});
  session.Type("x=2;v=<1>;r0&=1");
  std::string text = "1";
  for (const std::string& expression :
       {Nest("(1+", "1", ")", kVeryDeep), Nest("round(", "1", ")", kVeryDeep),
        Nest("<", "1", ">", kVeryDeep)}) {
    EXPECT_EQ(session.Type("5;x=" + expression + ";_;x"),
              "\tScalar : 5\n" + std::string(kTooDeep) + "\tScalar : 5\n\tScalar : 2\n");
  }
}

TEST(MemoryLimit, EndsTextsThatDouble) {
  Session session;
  session.GetState().SetLimits({.memory = 1U << 20});
  session.Type("v=<1>");
  std::string output;
  for (int i = 0; i < 40; ++i) output = session.Type("v=<v,v>");
  EXPECT_EQ(output, kTooDeep);
  EXPECT_TRUE(session.Type("v").starts_with("\tVector : <<<"));
}

TEST(MemoryLimit, EndsChainsOfReferences) {
  Session session;
  session.GetState().SetLimits({.memory = 1U << 16});
  for (int i = 10000; i > 0; --i) {
    session.Type("r" + std::to_string(i) + "&=r" + std::to_string(i - 1) + "+1");
  }
  session.Type("r0=1");
  EXPECT_EQ(session.Type("x=r10000+1"), kTooDeep);
  EXPECT_EQ(session.Type("r10+1"), "\tScalar : 12\n");
}

TEST(CircularReference, IsStoredAndShowsItsExpression) {
  const LinesRow kRows[] = {
      {"r&=r+1",               "\tDefining Reference : r = r+1\n"             },
      {"r&=r",                 "\tDefining Reference : r = r\n"               },
      {"r&= r ",               "\tDefining Reference : r =  r \n"             },
      {"r=&r",                 "\tDefining Reference : r = r\n"               },
      {"r&=r+1\n?r",           "\tReference : r = r+1\n"                      },
      {"r&=r+1\nr",            "\tReference : r+1\n"                          },
      {"r&=r+1\n~r",           "\tReference 'r' erased\n"                     },
      {"a&=b+1\nb&=a+1",       "\tDefining Reference : b = a+1\n"             },
      {"a&=b\nb&=c\nc&=a\n?b", "\tReference : b = c\n"                        },
      {"r&=r+1\nr=2;?r",       "\tDefining Scalar : r = 2\n\tScalar : r = 2\n"},
  };
  ExpectOutput(kRows);
}

std::string LeadsBack(const std::string& expression) {
  return "\tError : Reference '" + expression + "' leads back to itself\n";
}

void ExpectRing(const std::string& definition, const std::string& command,
                const std::string& expression) {
  Session session;
  session.Type(definition);
  session.Type("5");
  EXPECT_EQ(session.Type(command), LeadsBack(expression)) << definition << " " << command;
  EXPECT_EQ(session.Type("_;?x"), "\tScalar : 5\n\tError : Unknown symbol 'x'\n")
      << definition << " " << command;
}

TEST(CircularReference, AnyUseOfItIsTheOneErrorAndChangesNothing) {
  for (const char* command :
       {"r+1", "r+r+r+r", "1+r", "-r", "round(r)", "min(r, r)", "<1, r>", "<5, 7>[r]", "(r)*2",
        "+r", "<r>", "r!", "r^r", "x=r", "x=r+1", "x=<1, r>"}) {
    ExpectRing("r&=r+1", command, "r+1");
  }
}

TEST(CircularReference, AnyRingIsOneAndIsNamedByTheExpressionThatIsMetTwice) {
  const struct {
    const char* definition;
    const char* expression;
  } kRows[] = {
      {"r&=r",             "r"         },
      {"r&=(r)",           "(r)"       },
      {"r&=-r",            "-r"        },
      {"r&=<r>",           "<r>"       },
      {"r&=<5>[r]",        "<5>[r]"    },
      {"r&=round(r)+r",    "round(r)+r"},
      {"r&=&r+r",          "&r+r"      },
      {"r&=&r",            "&r"        },
      {"r=&r",             "r"         },
      {"r&=s;s&=r+r",      "s"         },
      {"r&=s;s&=t;t&=r",   "s"         },
      {"r&=s+1;s&=t;t&=s", "t"         }, // beside the ring
  };
  for (const auto& row : kRows) {
    ExpectRing(row.definition, "r+1", row.expression);
    ExpectRing(row.definition, "x=r", row.expression);
  }
}

TEST(CircularReference, FailsAtOnceHoweverOftenItBranches) {
  Session session;
  session.Type("r&=r+r+r+r*r-r;v&=<v, v, v, v>;f&=min(min(f, f), max(f, f))");
  const ValueRow kRows[] = {
      {"r+1",     "\tError : Reference 'r+r+r+r*r-r' leads back to itself"              },
      {"<1, v>",  "\tError : Reference '<v, v, v, v>' leads back to itself"             },
      {"f+f",     "\tError : Reference 'min(min(f, f), max(f, f))' leads back to itself"},
      {"x+r+v+f", "\tError : Unknown symbol 'x'"                                        },
  };
  ExpectValues(session, kRows);
  EXPECT_EQ(session.Type("r;?v"), "\tReference : r+r+r+r*r-r\n\tReference : v = <v, v, v, v>\n");
}

TEST(CircularReference, TouchesOnlyWhatDependsOnIt) {
  Session session;
  session.Type("b=7;a=1;v=<1, &a, &b>;a&=a+1");
  EXPECT_EQ(session.Type("v"), "\tVector : <1, a, 7>\n");
  EXPECT_EQ(session.Type("v[2]+1"), "\tScalar : 8\n");
  EXPECT_EQ(session.Type("2*v"), LeadsBack("a+1"));
  EXPECT_EQ(session.Type("b+1"), "\tScalar : 8\n");
}

TEST(CircularReference, ThroughAVectorShowsTheExpressionWhereTheValueHoldsItself) {
  Session session;
  session.Type("x=1;v=<1, &x>");
  EXPECT_EQ(session.Type("x=v"), "\tDefining Vector : x = <1, <1, x>>\n");
}

TEST(CircularReference, IsHarmlessOnceItsRingIsOpened) {
  Session session;
  session.Type("a&=b+1;b&=a+1");
  EXPECT_EQ(session.Type("a+0"), LeadsBack("b+1"));
  EXPECT_EQ(session.Type("b+0"), LeadsBack("a+1"));
  session.Type("b=1");
  EXPECT_EQ(session.Type("a+0"), "\tScalar : 2\n");
}

TEST(CircularReference, SaysSoWhereAHostAsks) {
  Session session;
  session.Type("a&=b;b&=a");
  EXPECT_EQ(EvaluateReference(session.GetState().GetSymbol("a")).error + "\n", LeadsBack("b"));
  EXPECT_FALSE(ToNumber(session.GetState().GetSymbol("a")));
  EXPECT_EQ(ToText(session.GetState().GetSymbol("a")), "b");
}

}  // namespace
}  // namespace Quarn

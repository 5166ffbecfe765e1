// Tests of long and deep expressions: what is long costs what it weighs, what is too deep for the
// stack is one error, at once.
#include <gtest/gtest.h>

#include <string>

#include "tests/support/sanitizers.h"
#include "tests/support/session.h"

namespace Quarn {
namespace {

constexpr char kTooDeep[] = "\tError : Expression is nested too deeply\n";
constexpr int kDeep = kSanitized ? 300 : 10000;
constexpr int kTooManyLevels = 200000;

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

TEST(DeepExpression, TooDeepIsOneErrorAndTheNextCommandWorks) {
  const std::string kTooDeepExpressions[] = {
      Nest("round(", "1", ")", kTooManyLevels),
      Nest("<", "1", ">", kTooManyLevels),
      Nest("<1>[", "0", "]", 1) + "+" + Nest("round(", "1", ")", kTooManyLevels),
  };
  for (const std::string& expression : kTooDeepExpressions) {
    Session session;
    session.Type("5");
    EXPECT_EQ(session.Type(expression + ";1"), kTooDeep + std::string("\tScalar : 1\n"));
    session.Type("5");
    EXPECT_EQ(session.Type("x=" + expression + ";_;?x"),
              kTooDeep + std::string("\tScalar : 5\n\tError : Unknown symbol 'x'\n"));
  }
}

TEST(DeepExpression, FailsAtOnceHoweverLongItIs) {
  Session session;
  for (const char* opening : {"round(", "<", "<1>[", "min(1, "}) {
    const std::string closing = std::string(opening) == "<" ? ">" : opening[3] == '[' ? "]" : ")";
    // If every level cost the length of what it holds, this would take minutes.
    EXPECT_TRUE(session.Type(Nest(opening, "1", closing, kTooManyLevels)).starts_with("\tError : "))
        << opening;
  }
}

TEST(DeepExpression, TheErrorStandsBehindThoseThatWereThere) {
  Session session;
  s_str error = "\tError : before";
  const s_str text = Nest("<", "zz", ">", kTooManyLevels);
  EXPECT_FALSE(session.GetState().ParseSymbol("", text, error, false));
  EXPECT_EQ(error.Get(), "\tError : before\n\tError : Expression is nested too deeply");
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

void ExpectTooDeep(const std::string& definition, const std::string& command) {
  Session session;
  session.Type(definition);
  session.Type("5");
  EXPECT_EQ(session.Type(command), kTooDeep) << definition << " " << command;
  EXPECT_EQ(session.Type("_;?x"), "\tScalar : 5\n\tError : Unknown symbol 'x'\n")
      << definition << " " << command;
}

TEST(CircularReference, AnyUseOfItIsTheOneErrorAndChangesNothing) {
  for (const char* command :
       {"r+1", "r+r+r+r", "1+r", "-r", "round(r)", "min(r, r)", "<1, r>", "<5, 7>[r]", "(r)*2",
        "+r", "<r>", "r!", "r^r", "x=r", "x=r+1", "x=<1, r>"}) {
    ExpectTooDeep("r&=r+1", command);
  }
}

TEST(CircularReference, AnyRingIsOne) {
  for (const char* definition :
       {"r&=r", "r&=(r)", "r&=-r", "r&=<r>", "r&=<5>[r]", "r&=round(r)+r", "r&=r+r+r", "r&=&r+r",
        "r&=&r", "r=&r", "r&=s;s&=r+r", "r&=s;s&=t;t&=r"}) {
    ExpectTooDeep(definition, "r+1");
    ExpectTooDeep(definition, "x=r");
  }
}

TEST(CircularReference, FailsAtOnceHoweverOftenItBranches) {
  Session session;
  session.Type("r&=r+r+r+r*r-r;v&=<v, v, v, v>;f&=min(min(f, f), max(f, f))");
  for (const char* line : {"r+1", "?r", "r", "<1, v>", "?v", "f+f", "?f", "x=r+v+f"}) {
    // If a branch were followed after the limit was met, this would never end.
    EXPECT_NE(session.Type(line), "") << line;
  }
}

TEST(CircularReference, IsHarmlessOnceItsRingIsOpened) {
  Session session;
  session.Type("a&=b+1;b&=a+1");
  EXPECT_EQ(session.Type("a+0"), kTooDeep);
  session.Type("b=1");
  EXPECT_EQ(session.Type("a+0"), "\tScalar : 2\n");
}

}  // namespace
}  // namespace Quarn

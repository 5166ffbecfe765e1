// Tests of what a host learns about the first failure of a line: kind, place and text.
#include <gtest/gtest.h>

#include "tests/support/session.h"

namespace Quarn {
namespace {

class LineFailureTest : public testing::Test {
 protected:
  LineFailureTest() : state_(session_.GetState()) { session_.Type("x=1;y:Symbol"); }

  void ExpectNone() {
    EXPECT_EQ(state_.GetFailure().failure, Failure::kNone);
    EXPECT_EQ(state_.GetFailure().place, Place());
    EXPECT_EQ(state_.GetFailure().error, "");
  }

  Session session_;
  State& state_;
};

TEST_F(LineFailureTest, IsTheFirstOne) {
  const struct {
    const char* line;
    Failure kind;
    Place place;
    const char* text;
  } kRows[] = {
      {"1+zz",          Failure::kUnknownName, {2, 2}, "\tError : Unknown symbol 'zz'"           },
      {"x=2;1+zz;2*uu", Failure::kUnknownName, {6, 2}, "\tError : Unknown symbol 'zz'"           },
      {"x=2*zz",        Failure::kUnknownName, {4, 2}, "\tError : Unknown symbol 'zz'"           },
      {"?no;1+zz",      Failure::kUnknownName, {1, 2}, "\tError : Unknown symbol 'no'"           },
      {"x: Foo ",       Failure::kUnknownName, {3, 3}, "\tError : Unknown type 'Foo'"            },
      {"x=1; a b =2",
       Failure::kForm,
       {5, 3},
       "\tError : Only alphanumeric names are allowed for symbols, in 'a b'"                     },
      {"a b&=x",
       Failure::kForm,
       {0, 3},
       "\tError : Only alphanumeric names are allowed for symbols, in 'a b'"                     },
      {"(1",            Failure::kForm,        {0, 1}, "\tError : Unterminated '('"              },
      {"<x>+x",
       Failure::kNoMatch,
       {3, 1},
       "\tError : No match for operator 'Vector + Scalar' in :\n\t        \t<1> + 1"             },
      {"1;x=y",         Failure::kValue,       {},     "\tWarning : 'Symbol=Symbol' does nothing"},
  };
  for (const auto& row : kRows) {
    session_.Type(row.line);
    const Result& failure = state_.GetFailure();
    EXPECT_FALSE(failure) << row.line;
    EXPECT_EQ(failure.failure, row.kind) << row.line;
    EXPECT_EQ(failure.place, row.place) << row.line;
    EXPECT_EQ(failure.error, row.text) << row.line;
  }
}

TEST_F(LineFailureTest, IsNoneWhenEachCommandDidWhatItWasAskedTo) {
  for (const char* line :
       {"", ";;", "1+1", "x=2;?x", "// 1+zz", "~nosuch", "~x", "x:=3", "?", "n"}) {
    session_.Type("1+zz");
    session_.Type(line);
    ExpectNone();
  }
}

TEST_F(LineFailureTest, IsALimitThatWasReached) {
  Limits limits;
  limits.output = 8;
  state_.SetLimits(limits);
  const struct {
    const char* line;
    Failure kind;
  } kRows[] = {
      {"v=<10, 20, 30>", Failure::kOutput},
      {"<10, 20, 30>",   Failure::kOutput},
      {"10;20",          Failure::kNone  },
  };
  for (const auto& row : kRows) {
    const std::string printed = session_.Type(row.line);
    EXPECT_EQ(state_.GetFailure().failure, row.kind) << row.line;
    if (row.kind == Failure::kNone) continue;
    EXPECT_EQ(state_.GetFailure().error + '\n', printed) << row.line;
  }
}

TEST_F(LineFailureTest, IsAnInterruptionBetweenCommands) {
  state_.AddFunction("stop", {""}, [](State& state, const Values&, Values& results, s_str&) {
    state.Interrupt();
    results.PushBack(s_refptr<Symbol>(new Symbol("stopped")));
    return s_bool(true);
  });
  const std::string printed = session_.Type("stop();x");
  EXPECT_EQ(state_.GetFailure().failure, Failure::kInterrupted) << printed;
  EXPECT_EQ(state_.GetFailure().error, "\tError : Evaluation was interrupted");
}

// A function that carries out a line looks at the failure of that line; who called the outer line,
// at that of the outer one.
TEST_F(LineFailureTest, OfALineWithinALineIsItsOwn) {
  Result inner;
  state_.AddFunction("typed", {""}, [&](State& state, const Values&, Values& results, s_str&) {
    state.ProcessLine("another line");
    inner = state.GetFailure();
    results.PushBack(s_refptr<Symbol>(new Symbol("typed")));
    return s_bool(true);
  });
  session_.Type("typed()");
  EXPECT_EQ(inner.failure, Failure::kForm);
  ExpectNone();

  session_.Type("1+zz;typed()");
  EXPECT_EQ(inner.failure, Failure::kForm);
  EXPECT_EQ(state_.GetFailure().place, (Place{2, 2}));

  session_.Type("typed();1+zz");
  EXPECT_EQ(state_.GetFailure().place, (Place{10, 2}));
}

}  // namespace
}  // namespace Quarn

// Tests of the limits that a host sets, and of interruptions: each ends what is under way with an
// error of its own, and the State goes on.
#include "interpreter/limits.h"

#include <gtest/gtest.h>

#include <atomic>
#include <string>
#include <thread>

#include "tests/support/sanitizers.h"
#include "tests/support/session.h"
#include "types/value.h"

namespace Quarn {
namespace {

constexpr char kTooManySteps[] = "\tError : Evaluation takes too many steps";
constexpr char kTooDeep[] = "\tError : Expression is nested too deeply";
constexpr char kTooManyLevels[] = "\tError : Expression has too many levels";
constexpr char kTooLong[] = "\tError : Output is too long";
constexpr char kInterrupted[] = "\tError : Evaluation was interrupted";

std::string Repeat(const std::string& text, int count) {
  std::string repeated;
  for (int i = 0; i < count; ++i) repeated += text;
  return repeated;
}

std::string Nest(const std::string& open, const std::string& inside, const std::string& close,
                 int levels) {
  return Repeat(open, levels) + inside + Repeat(close, levels);
}

// A vector of so many numbers, as a user writes it.
std::string Ones(int count) { return "<" + Repeat("1,", count) + ">"; }

class LimitsTest : public ::testing::Test {
 protected:
  void Limit(const Limits& limits) { session_.GetState().SetLimits(limits); }
  void ExpectFailure(const std::string& expression, const char* error, Failure failure) {
    const Result result = session_.GetState().Compute(expression);
    EXPECT_FALSE(result) << expression;
    EXPECT_EQ(result.error, error) << expression;
    EXPECT_EQ(result.failure, failure) << expression;
    ExpectToGoOn();
  }
  void ExpectToGoOn() { EXPECT_EQ(session_.Type("1+1"), "\tScalar : 2\n"); }

  Session session_;
};

TEST_F(LimitsTest, OfStepsEndsLongExpressions) {
  Limit({.steps = 1000});
  ExpectFailure("1" + Repeat("+1", 5000), kTooManySteps, Failure::kSteps);
  ExpectFailure(Ones(5000), kTooManySteps, Failure::kSteps);
  ExpectFailure("min(1, 2" + Repeat("+1", 5000) + ")", kTooManySteps, Failure::kSteps);
  EXPECT_EQ(session_.Evaluate("1" + Repeat("+1", 500)), "Scalar : 501");
}

TEST_F(LimitsTest, OfStepsCountsElements) {
  session_.Type("v=" + Ones(5000) + ";w=<v, v>");
  Limit({.steps = 1000});
  for (const char* expression : {"v+v", "v-v", "2*v", "v*2", "-v", "2*w"}) {
    ExpectFailure(expression, kTooManySteps, Failure::kSteps);
  }
  EXPECT_EQ(session_.Type("v;1+1"), std::string(kTooManySteps) + "\n\tScalar : 2\n");
  EXPECT_EQ(session_.Type("v[3]"), "\tScalar : 1\n");
}

TEST_F(LimitsTest, OfStepsIsThereAnewForEachCommand) {
  Limit({.steps = 1000});
  const std::string command = "1" + Repeat("+1", 600);
  EXPECT_EQ(session_.Type(command + ";" + command + ";" + command), Repeat("\tScalar : 601\n", 3));
}

TEST_F(LimitsTest, OfStepsCountsReferences) {
  session_.Type("r0=1");
  for (int i = 1; i < 500; ++i) {
    session_.Type("r" + std::to_string(i) + "&=r" + std::to_string(i - 1) + "+1+1+1");
  }
  session_.Type("r0=2");
  Limit({.steps = 1000});
  EXPECT_EQ(session_.Type("r499+0"), std::string(kTooManySteps) + "\n");
  Limit({});
  EXPECT_EQ(session_.Type("r499+0"), "\tScalar : 1499\n");
}

TEST_F(LimitsTest, OfOutputEndsLongTexts) {
  session_.Type("v=" + Ones(5000) + ";a=<v, 1>[0]");
  Limit({.output = 100});
  EXPECT_EQ(session_.Type("v;1+1"), std::string(kTooLong) + "\n\tScalar : 2\n");
  EXPECT_EQ(session_.Type("?v"), std::string(kTooLong) + "\n");
  EXPECT_EQ(session_.Type("x=v;x"), std::string(kTooLong) + "\n\tDefining Symbol : x\n");
  EXPECT_EQ(session_.Type("v[0]"), "\tScalar : 1\n");
  ExpectFailure("(-v)+1", kTooLong, Failure::kOutput);
}

TEST_F(LimitsTest, OfOutputEndsDeferredTextsThatDouble) {
  Limit({.output = 1000});
  session_.Type("r0&=q");
  std::string output = "\tDefining";
  for (int i = 1; output.starts_with("\tDefining"); ++i) {
    const std::string before = std::to_string(i - 1);
    output = session_.Type("r" + std::to_string(i) + "=r" + before + "+r" + before);
  }
  EXPECT_EQ(output, std::string(kTooLong) + "\n");
  ExpectToGoOn();
}

TEST_F(LimitsTest, OfNestingEndsDeepExpressions) {
  Limit({.nesting = 20});
  ExpectFailure(Nest("(1+", "1", ")", 50), kTooManyLevels, Failure::kNesting);
  ExpectFailure(Nest("round(", "1", ")", 50), kTooManyLevels, Failure::kNesting);
  ExpectFailure(Nest("<", "1", ">", 50), kTooManyLevels, Failure::kNesting);
  EXPECT_EQ(session_.Evaluate(Nest("(1+", "1", ")", 10)), "Scalar : 11");
}

TEST_F(LimitsTest, OfNestingEndsLongChainsOfReferences) {
  for (int i = 50; i > 0; --i) {
    session_.Type("r" + std::to_string(i) + "&=r" + std::to_string(i - 1) + "+1");
  }
  session_.Type("r0=1");
  Limit({.nesting = 20});
  ExpectFailure("r50+1", kTooManyLevels, Failure::kNesting);
  EXPECT_EQ(session_.Type("r10+1"), "\tScalar : 12\n");
}

TEST_F(LimitsTest, OfMemoryIsThatOfWhatIsUnderWay) {
  Limit({.memory = 1U << 16});
  ExpectFailure(Nest("(1+", "1", ")", 10000), kTooDeep, Failure::kMemory);
  ExpectFailure(Ones(50000), kTooDeep, Failure::kMemory);
}

TEST_F(LimitsTest, LeaveSymbolsAlone) {
  session_.Type("x=1;r&=x+1");
  Limit({.steps = 100});
  session_.Type("x=1" + Repeat("+1", 500));
  session_.Type("r&=1;y=1" + Repeat("+1", 500));
  EXPECT_EQ(session_.Type("x"), "\tScalar : 1\n");
  EXPECT_EQ(session_.Type("r+0"), "\tScalar : 1\n");
  EXPECT_EQ(session_.Type("?y"), "\tError : Unknown symbol 'y'\n");
}

TEST_F(LimitsTest, CountForWhatAHostAsksFor) {
  session_.Type("v=" + Ones(5000));
  Limit({.steps = 100});
  State& state = session_.GetState();
  s_str error;
  const s_refptr<Symbol> v = state.GetSymbol("v");
  EXPECT_FALSE(state.ApplyBinaryOperator("+", v, v, error));
  EXPECT_EQ(error.Get(), kTooManySteps);
  EXPECT_TRUE(state.ApplyBinaryOperator("+", FromNumber(1), FromNumber(2), error));
  EXPECT_TRUE(state.Spend(1'000'000'000)) << "nothing is under way";
}

TEST_F(LimitsTest, AreHeardByWhoAsksForAReference) {
  session_.Type("long&=1" + Repeat("+1", 500));
  session_.GetState().AddFunction(
      "peek", {""}, [](State& state, const Values&, Values& results, s_str&) -> s_bool {
        results.PushBack(FromNumber(state.GetSymbol("long")->GetType() == "Scalar" ? 1 : 0));
        return true;
      });
  EXPECT_EQ(session_.Evaluate("peek()"), "Scalar : 1");
  session_.Type("long&=2" + Repeat("+2", 500));
  EXPECT_EQ(session_.Evaluate("peek()"), "Scalar : 1");
  session_.GetState().AddRightUnary({
      {"*", "Scalar", [](const s_refptr<Symbol>& operand, s_str&) {
         return operand;
       }}
  });  // so that nothing is known any more
  Limit({.steps = 100});
  EXPECT_EQ(session_.GetState().GetSymbol("long")->GetType(), "Reference");
  ExpectFailure("peek()", kTooManySteps, Failure::kSteps);
  const Result result = EvaluateReference(session_.GetState().GetSymbol("long"));
  EXPECT_EQ(result.error, kTooManySteps);
  EXPECT_EQ(result.failure, Failure::kSteps);
}

// Whoever has used up all steps gets nothing more, and gives nothing that counts.
TEST_F(LimitsTest, EndWhatGoesOnAllTheSame) {
  session_.Type("x=1;r&=x+1;y=<1, 2>");
  State& state = session_.GetState();
  state.AddFunction("go", {""}, [](State& own, const Values&, Values& results, s_str&) -> s_bool {
    Expression prepared = own.Prepare("y+y");
    const s_refptr<Symbol> reference = own.GetSymbol("r");
    EXPECT_FALSE(own.Spend(1'000'000));
    EXPECT_EQ(own.Compute("1").error, kTooManySteps);
    EXPECT_EQ(prepared.Evaluate().error, kTooManySteps);
    EXPECT_EQ(reference->GetType(), "Reference");
    s_str error;
    EXPECT_FALSE(own.ApplyBinaryOperator("+", reference, FromNumber(1), error));
    EXPECT_EQ(error.Get(), kTooManySteps);
    results.PushBack(FromNumber(1));
    return true;
  });
  const auto go_on = [&state](const s_refptr<Symbol>& operand, s_str&) {
    state.Spend(1'000'000);
    return operand;
  };
  state.AddLeftUnary({
      {"!", "Scalar", go_on}
  });
  BinaryRow power{"Scalar", "^", "Scalar", {}};
  power.on_operands = [](State& own, const Operand& left, const Operand&, s_str&) {
    own.Spend(1'000'000);
    return std::optional<Operand>(left);
  };
  state.AddBinary({power});
  state.AddType({"Goes", [](const s_str&) { return FromNumber(0); },
                 [](std::string_view text) -> s_bool { return text == "#"; },
                 [](State& own, const s_str&, const s_str&, s_str&) {
                   own.Spend(1'000'000);
                   return FromNumber(7);
                 }});
  for (const char* expression : {"go()", "1!", "1^2", "#"}) {
    EXPECT_TRUE(state.Compute(*expression == 'g' ? "1" : expression)) << expression;
    Limit({.steps = 100'000});
    ExpectFailure(expression, kTooManySteps, Failure::kSteps);
    Limit({});
  }
}

// ---- Endless work ----

TEST_F(LimitsTest, EndTheEndlessWhenTheyShall) {
  Limit({.ends_the_endless = true});
  const ValueRow kRows[] = {
      {"!2.5",       "\tError : The factorial of 2.5 never ends"   },
      {"!0",         "\tError : The factorial of 0 never ends"     },
      {"!(0-1)",     "\tError : The factorial of -1 never ends"    },
      {"!(1/0)",     "\tError : The factorial of inf+ never ends"  },
      {"!(0/0)",     "\tError : The factorial of nan never ends"   },
      {"!1000.2",    "\tError : The factorial of 1000.2 never ends"},
      {"!1e17",      "\tError : The factorial of 1e+17 never ends" },
      {"<1>[1/0]",   "\tError : The index is infinite"             },
      {"<1>[0-1/0]", "\tError : The index is infinite"             },
      {"!5",         "Scalar : 120"                                },
      {"!3.95",      "Scalar : 24"                                 },
      {"!3.0995",    "Scalar : 6"                                  },
      {"!1",         "Scalar : 1"                                  },
      {"!171",       "Scalar : inf+"                               },
      {"!1e9",       "Scalar : inf+"                               },
      {"<4, 5>[1]",  "Scalar : 5"                                  },
  };
  ExpectValues(session_, kRows);
}

TEST_F(LimitsTest, EndTheEndlessInReferencesToo) {
  Limit({.ends_the_endless = true});
  session_.Type("r&=!x;x=2.5");
  EXPECT_EQ(session_.Type("r"), "\tReference : !x\n");
  session_.Type("x=4");
  EXPECT_EQ(session_.Type("r+1"), "\tScalar : 25\n");
}

// ---- Interruption ----

class InterruptTest : public LimitsTest {
 protected:
  InterruptTest() {
    session_.GetState().AddFunction("interrupt", {""},
                                    [this](auto&&... call) { return Interrupt(call...); });
  }

  bool is_armed_ = true;

 private:
  s_bool Interrupt(State& state, const Values&, Values& results, s_str&) {
    if (is_armed_) state.Interrupt();
    results.PushBack(FromNumber(1));
    return true;
  }
};

TEST_F(InterruptTest, EndsTheExpressionAndTheLine) {
  EXPECT_EQ(session_.Type("x=interrupt()+" + Ones(5000) + "[0];2"),
            std::string(kInterrupted) + "\n");
  EXPECT_EQ(session_.Type("?x"), "\tError : Unknown symbol 'x'\n");
  ExpectToGoOn();
}

// The call is the last that the first command does, so that it has its value.
TEST_F(InterruptTest, IsToldWhenItComesBetweenCommands) {
  EXPECT_EQ(session_.Type("x=2;interrupt();x=3"),
            "\tDefining Scalar : x = 2\n\tScalar : 1\n" + std::string(kInterrupted) + "\n");
  EXPECT_EQ(session_.Type("interrupt()"), "\tScalar : 1\n") << "nothing was left to end";
  EXPECT_EQ(session_.Type("x"), "\tScalar : 2\n");
}

TEST_F(InterruptTest, IsSeenInEveryKindOfLongWork) {
  const std::string sum = "interrupt()" + Repeat("+1", 10000);
  is_armed_ = false;
  session_.Type("v=" + Ones(5000) + ";w=<v, v>;r&=interrupt()*v;s&=" + sum);
  is_armed_ = true;
  for (const char* expression :
       {"interrupt()*v", "interrupt()*w", "interrupt()*(-v)", "r+r", "v*r"}) {
    const Result result = session_.GetState().Compute(expression);
    EXPECT_EQ(result.error, kInterrupted) << expression;
    EXPECT_EQ(result.failure, Failure::kInterrupted) << expression;
    ExpectToGoOn();
  }
  EXPECT_EQ(session_.GetState().Compute(sum).error, kInterrupted);
  EXPECT_EQ(session_.Type("s+1"), std::string(kInterrupted) + "\n");
}

TEST_F(InterruptTest, IsSeenByPreparedExpressions) {
  Limit({.steps = 1000});
  session_.GetState().AddFunction(
      "prepared", {""}, [](State& state, const Values&, Values& results, s_str&) -> s_bool {
        Expression sum = state.Prepare("1+1");
        EXPECT_EQ(sum.EvaluateNumber(), 2);
        state.Interrupt();
        EXPECT_EQ(sum.EvaluateNumber(), std::nullopt);
        results.PushBack(FromNumber(1));
        return true;
      });
  ExpectFailure("prepared()", kInterrupted, Failure::kInterrupted);
}

TEST_F(InterruptTest, DoesNothingWhenNothingIsUnderWay) {
  session_.GetState().Interrupt();
  ExpectToGoOn();
  session_.GetState().Interrupt();
  EXPECT_TRUE(session_.GetState().Compute("1" + Repeat("+1", 10000)));
}

// Each of the commands would take hours.
TEST_F(InterruptTest, ComesFromAnotherThread) {
  session_.Type("v=" + Ones(100'000));
  std::atomic<bool> is_over = false;
  std::thread other([&] {
    while (!is_over) {
      session_.GetState().Interrupt();
      std::this_thread::yield();
    }
  });
  const std::string output = session_.Type("x=v" + Repeat("+v", kSanitized ? 1'000 : 100'000));
  is_over = true;
  other.join();
  EXPECT_EQ(output, std::string(kInterrupted) + "\n");
  ExpectToGoOn();
}

}  // namespace
}  // namespace Quarn

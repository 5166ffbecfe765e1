// Tests of prepared expressions and of variables: they are what State::Compute and assignments are,
// only faster.
#include "interpreter/expression.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <vector>

#include "tests/support/session.h"
#include "types/lift.h"
#include "types/value.h"

namespace Quarn {
namespace {

class ExpressionTest : public ::testing::Test {
 protected:
  Expression Prepare(const std::string& text) { return session_.GetState().Prepare(text); }
  Variable GetVariable(const std::string& name) { return session_.GetState().GetVariable(name); }
  static std::string Show(const Result& result) {
    return result ? GetTypeName(result.value) + " : " + ToText(result.value) : result.error;
  }

  Session session_;
};

TEST_F(ExpressionTest, GivesWhatComputeGives) {
  session_.Type("x=2;v=<1, 2, 3>;r&=x+1;s&=zz+1;f=<v, v>");
  for (const char* text : {"1",
                           "x",
                           "x+1",
                           "2*x-3/x",
                           "-x",
                           "+x",
                           "!x",
                           "(x)",
                           "x*(x+1)",
                           "1-(2-(3-x))",
                           "x/0",
                           "min(x, 3)",
                           "max(1, x)",
                           "round(x/3)",
                           "v",
                           "v+v",
                           "v[x]",
                           "v[r]",
                           "r",
                           "r+1",
                           "-r",
                           "s",
                           "s+1",
                           "&x+1",
                           "&r",
                           "<x, r, 3>",
                           "<x, v>",
                           "f[0]",
                           "zz",
                           "x+zz",
                           "no(1)",
                           "max(1)",
                           "max(v, 1)",
                           "1+",
                           "(1",
                           "1)",
                           "",
                           " ",
                           "()",
                           "1 2",
                           "v+1",
                           "<1>+2",
                           "v^v",
                           "x^2",
                           "_",
                           "_+1",
                           "x*x*x*x",
                           "!4+!3",
                           "min(min(x, 1), max(r, 3))",
                           "1+<2>",
                           "v-<1, 2>",
                           "<>[0]",
                           "rr+x",
                           "x+v",
                           "2*x-3",
                           "2*x/4",
                           "(x+1)/(x+2)",
                           "rand()*0",
                           "max(x, 1, 3)"}) {
    const Result expected = session_.GetState().Compute(text);
    Expression expression = Prepare(text);
    for (int i = 0; i < 2; ++i) {
      const Result result = expression.Evaluate();
      EXPECT_EQ(Show(result), Show(expected)) << text;
      EXPECT_EQ(result.place, expected.place) << text;
      EXPECT_EQ(result.failure, expected.failure) << text;
    }
    EXPECT_EQ(expression.EvaluateNumber(), ToNumber(expected.value)) << text;
    EXPECT_EQ(expression.GetText(), text);
  }
}

TEST_F(ExpressionTest, FollowsItsNames) {
  Expression expression = Prepare("x*y");
  EXPECT_EQ(Show(expression.Evaluate()), "\tError : Unknown symbol 'x'");
  session_.Type("x=3");
  EXPECT_EQ(Show(expression.Evaluate()), "\tError : Unknown symbol 'y'");
  EXPECT_EQ(expression.Evaluate().place, (Place{2, 1}));
  session_.Type("y=4");
  EXPECT_EQ(expression.EvaluateNumber(), 12);
  session_.Type("y=<1, 2>");
  EXPECT_EQ(expression.EvaluateNumber(), std::nullopt);
  EXPECT_EQ(Show(expression.Evaluate()), "Vector : <3, 6>");
  session_.Type("y&=x+1");
  EXPECT_EQ(expression.EvaluateNumber(), 12);
  session_.Type("x=5");
  EXPECT_EQ(expression.EvaluateNumber(), 30);
  session_.Type("~x");
  EXPECT_EQ(expression.EvaluateNumber(), std::nullopt);
  session_.Type("x=1");
  EXPECT_EQ(expression.EvaluateNumber(), 2);
}

TEST_F(ExpressionTest, SaysWhyThereIsNoNumber) {
  session_.Type("x=2;v=<1, 2>;r&=x+1;s&=zz+1;n:Reference");
  const struct {
    const char* text;
    const char* otherwise;
    Failure failure;
  } kRows[] = {
      {"x+zz", "\tError : Unknown symbol 'zz'",                                                  Failure::kUnknownName},
      {"v+1",  "\tError : No match for operator 'Vector + Scalar' in :\n\t        \t<1, 2> + 1",
       Failure::kNoMatch                                                                                              },
      {"s",    "\tError : Unknown symbol 'zz'",                                                  Failure::kUnknownName},
      {"2*s",  "\tError : Unknown symbol 'zz'",                                                  Failure::kUnknownName},
      {"n",    "\tError : Empty symbol",                                                         Failure::kForm       },
      {"x*v",  "Vector : <2, 4>",                                                                Failure::kNone       },
      {"&v",   "Vector : <1, 2>",                                                                Failure::kNone       },
  };
  for (const auto& row : kRows) {
    Result otherwise;
    EXPECT_EQ(Prepare(row.text).EvaluateNumber(otherwise), std::nullopt) << row.text;
    EXPECT_EQ(Show(otherwise), row.otherwise) << row.text;
    EXPECT_EQ(otherwise.failure, row.failure) << row.text;
  }
  Result untouched;
  EXPECT_EQ(Prepare("x+1").EvaluateNumber(untouched), 3);
  EXPECT_EQ(Prepare("r").EvaluateNumber(untouched), 3);
  EXPECT_EQ(Show(untouched), "");
}

// An operator and the name behind it may be one step of a prepared expression.
TEST_F(ExpressionTest, TakesStepsAndNoMoreThanCompute) {
  session_.Type("x=2;v=<1, 2>");
  State& state = session_.GetState();
  const auto count_steps = [&state](const std::string& text, const auto& evaluate) {
    Limits limits;
    for (limits.steps = 0; limits.steps < 100; ++limits.steps) {
      state.SetLimits(limits);
      const Failure failure = evaluate();
      if (failure == Failure::kNone) break;
      EXPECT_EQ(failure, Failure::kSteps) << text;
    }
    state.SetLimits({});
    return limits.steps;
  };
  for (const char* text :
       {"1", "x", "x+1", "2*x-3/x", "x*x*x*x", "-(x)", "min(x, max(3, x))", "v+v"}) {
    const auto computed = count_steps(text, [&] { return state.Compute(text).failure; });
    Expression expression = Prepare(text);
    const auto prepared = count_steps(text, [&] {
      Result otherwise;
      expression.EvaluateNumber(otherwise);
      return otherwise.failure;
    });
    EXPECT_GT(prepared, 0U) << text;
    EXPECT_LE(prepared, computed) << text;
    EXPECT_LT(computed, 100U) << text;
  }
}

// A function that evaluates on and on within an evaluation.
TEST_F(ExpressionTest, TakesTheStepsOfWhatIsUnderWay) {
  session_.Type("x=2");
  State& state = session_.GetState();
  int times = 0;
  state.AddFunction("again", {""}, [&](State&, const Values&, Values&, s_str& error) -> s_bool {
    Expression expression = Prepare("x*x+1");
    Result otherwise;
    for (times = 0; times < 100'000; ++times) {
      if (expression.EvaluateNumber(otherwise)) continue;
      error = otherwise.error;
      return false;
    }
    return false;
  });
  Limits limits;
  limits.steps = 3000;
  state.SetLimits(limits);
  EXPECT_EQ(state.Compute("again()").failure, Failure::kSteps);
  EXPECT_GT(times, 100);
  EXPECT_LT(times, 3000);
  EXPECT_EQ(Prepare("x*x+1").EvaluateNumber(), 5);
}

TEST_F(ExpressionTest, SurvivesThatAllSymbolsGo) {
  Session session("y\n");
  session.Type("x=3");
  Expression expression = session.GetState().Prepare("x+1");
  Variable x = session.GetState().GetVariable("x");
  session.Type("~");
  EXPECT_EQ(expression.EvaluateNumber(), std::nullopt);
  EXPECT_EQ(x.Get(), std::nullopt);
  x.Set(7);
  EXPECT_EQ(expression.EvaluateNumber(), 8);
  EXPECT_EQ(session.Type("?x"), "\tScalar : x = 7\n");
}

TEST_F(ExpressionTest, SaysWhatIsWrongBeforeItIsRun) {
  const struct {
    const char* text;
    const char* error;
    Place place;
    Failure failure;
  } kRows[] = {
      {"1+(2",   "\tError : Unterminated '('",                   {2, 1}, Failure::kForm       },
      {"1+2)",   "\tError : Too many closing ')'",               {3, 1}, Failure::kForm       },
      {"1+f(2)", "\tError : Undefined function 'f'",             {2, 1}, Failure::kUnknownName},
      {"v[]",    "\tError : Illegal use of '[.]' without index", {1, 2}, Failure::kForm       },
  };
  for (const auto& row : kRows) {
    const Expression expression = Prepare(row.text);
    EXPECT_FALSE(expression.IsWellFormed()) << row.text;
    EXPECT_EQ(expression.GetMistake().place, row.place) << row.text;
    EXPECT_EQ(expression.GetMistake().failure, row.failure) << row.text;
    EXPECT_EQ(expression.GetMistake().error, session_.GetState().Compute(row.text).error);
  }
  const Expression good = Prepare("zz+1");
  EXPECT_TRUE(good.IsWellFormed());
  EXPECT_EQ(good.GetMistake().error, "");
}

TEST_F(ExpressionTest, KnowsItsNames) {
  using Names = std::vector<std::string>;
  EXPECT_EQ(Prepare("a*x*x+b*x+c").GetNames(), (Names{"a", "x", "b", "c"}));
  EXPECT_EQ(Prepare("min(a, <b>[c])+_").GetNames(), (Names{"a", "b", "c", "_"}));
  EXPECT_EQ(Prepare("1+2").GetNames(), Names());
  EXPECT_EQ(Prepare("a+(").GetNames(), Names());
}

// The registries are read anew when they change, whichever way the numbers were run before.
TEST_F(ExpressionTest, FollowsTheRegistries) {
  session_.Type("x=6");
  Expression sum = Prepare("x+2");
  Expression call = Prepare("half(x)");
  EXPECT_EQ(sum.EvaluateNumber(), 8);
  EXPECT_EQ(call.EvaluateNumber(), std::nullopt);
  EXPECT_FALSE(call.IsWellFormed());
  session_.GetState().AddBinary({OnScalars("+", [](double a, double b) { return 10 * a + b; })});
  session_.GetState().AddFunctions({OnScalars(
      "half", [](double x) { return x / 2; }, Purity::kPure)});
  EXPECT_EQ(sum.EvaluateNumber(), 62);
  EXPECT_EQ(call.EvaluateNumber(), 3);
  EXPECT_EQ(Show(sum.Evaluate()), session_.Evaluate("x+2"));
}

TEST_F(ExpressionTest, CallsFunctionsEachTime) {
  int calls = 0;
  session_.GetState().AddFunctions({
      {"count", {""}, [&calls](State&, const Values&, Values& results, s_str&) -> s_bool {
         results.PushBack(FromNumber(++calls));
         return true;
       }}
  });
  Expression expression = Prepare("1+count()");
  EXPECT_EQ(expression.EvaluateNumber(), 2);
  EXPECT_EQ(expression.EvaluateNumber(), 3);
  Expression random = Prepare("rand(5, 5)+rand(7, 7)");
  EXPECT_EQ(random.EvaluateNumber(), 12);
}

TEST_F(ExpressionTest, CallsWhatAHostRegistersForNumbers) {
  session_.Type("x=2");
  State& state = session_.GetState();
  state.AddBinary({OnScalars("^", [](double a, double b) { return 10 * a + b; })});
  state.AddFunction("second", {"Scalar", "Scalar"},
                    [](State&, const Values& arguments, Values& results, s_str&) -> s_bool {
                      results.PushBack(arguments[1U]->Clone());
                      return true;
                    });
  const struct {
    const char* text;
    double number;
  } kRows[] = {
      {"x^3",            23 },
      {"(x+1)^(x*2)",    34 },
      {"1^x^3",          123},
      {"second(x, 5)",   5  },
      {"1+second(1, x)", 3  },
  };
  for (const auto& row : kRows) EXPECT_EQ(Prepare(row.text).EvaluateNumber(), row.number);
}

// More numbers wait than there is room for where only numbers are computed with.
TEST_F(ExpressionTest, HoldsAnyNumberOfOperandsThatWait) {
  session_.Type("x=1");
  session_.GetState().AddBinary({OnScalars("^", [](double a, double b) { return a + b; })});
  for (int count = 1; count < 40; ++count) {
    std::string text = "x^x";
    for (int i = 2; i < count; ++i) text = "x^(" + text + ")";
    EXPECT_EQ(Prepare(text).EvaluateNumber(), std::max(count, 2)) << text;
  }
}

TEST_F(ExpressionTest, HasAnyLengthAndDepth) {
  session_.Type("x=1");
  std::string sum = "x";
  for (int i = 0; i < 10'000; ++i) sum += "+x";
  EXPECT_EQ(Prepare(sum).EvaluateNumber(), 10'001);
  std::string nested = "x";
  for (int i = 0; i < 100; ++i) nested = "(1-x)+x*(" + nested + ")";
  EXPECT_EQ(Prepare(nested).EvaluateNumber(), 1);
}

TEST_F(ExpressionTest, ObeysTheLimits) {
  session_.Type("x=1");
  std::string sum = "x";
  for (int i = 0; i < 100; ++i) sum += "+x";
  Expression expression = Prepare(sum);
  EXPECT_EQ(expression.EvaluateNumber(), 101);
  session_.GetState().SetLimits({.steps = 50});
  EXPECT_EQ(expression.EvaluateNumber(), std::nullopt);
  EXPECT_EQ(expression.Evaluate().error, "\tError : Evaluation takes too many steps");
}

TEST_F(ExpressionTest, IsMoved) {
  session_.Type("x=1");
  Expression first = Prepare("x+1");
  Expression second = std::move(first);
  first = Prepare("x+2");
  EXPECT_EQ(first.EvaluateNumber(), 3);
  EXPECT_EQ(second.EvaluateNumber(), 2);
}

TEST_F(ExpressionTest, AVariableIsTheSymbol) {
  Variable x = GetVariable("x");
  EXPECT_TRUE(x);
  EXPECT_EQ(x.Get(), std::nullopt);
  x.Set(2);
  EXPECT_EQ(session_.Type("?x"), "\tScalar : x = 2\n");
  session_.Type("r&=x*x");
  EXPECT_EQ(session_.Type("r+0"), "\tScalar : 4\n");
  x.Set(3);
  EXPECT_EQ(session_.Type("r+0"), "\tScalar : 9\n");
  session_.Type("x=<1, 2>");
  EXPECT_EQ(x.Get(), std::nullopt);
  x.Set(5);
  EXPECT_EQ(session_.Type("x"), "\tScalar : 5\n");
  session_.Type("x=x+1");
  EXPECT_EQ(x.Get(), 6);
  EXPECT_EQ(ToText(session_.GetState().GetSymbol("x")), "6");
  EXPECT_EQ(x.Get(), 6) << "also when the symbol is an object";
  x.Set(std::nan(""));
  EXPECT_EQ(session_.Type("x"), "\tScalar : nan\n");
}

TEST_F(ExpressionTest, AVariableHasANameThatCanBeAskedFor) {
  for (const char* name : {"", "7", "e5", "_", "a b", "x+1", "inf"}) {
    Variable variable = GetVariable(name);
    EXPECT_EQ(static_cast<bool>(variable),
              static_cast<bool>(session_.GetState().SetSymbol(name, FromNumber(1))))
        << name;
    if (variable) continue;
    variable.Set(1);
    EXPECT_EQ(variable.Get(), std::nullopt) << name;
  }
  Variable x = GetVariable("x");
  Variable moved = std::move(x);
  moved.Set(1);
  x = std::move(moved);
  EXPECT_EQ(x.Get(), 1);
}

}  // namespace
}  // namespace Quarn

// Tests of failures: they say why, say it once, and say nothing where their cause said nothing.
#include <gtest/gtest.h>

#include "interpreter/state.h"
#include "tests/support/foreign_types.h"
#include "tests/support/session.h"
#include "types/value.h"

namespace Quarn {
namespace {

constexpr char kRing[] = "\tError : Reference 'ring+1' leads back to itself";

class FailureTest : public testing::Test {
 protected:
  FailureTest() {
    Word::Register(state_);
    session_.Type("ring&=ring+1");
  }

  // Leaves the State as an evaluation does that did not fit on the stack.
  void MeetTheRing() { EXPECT_EQ(state_.Compute("ring+1").error, kRing); }

  std::string Describe(const s_refptr<Symbol>& value, const s_str& error) {
    return value ? error.Get() + ToText(value) : "null " + error.Get();
  }
  std::string Before(const char* op, const s_refptr<Symbol>& operand, s_str error = "") {
    const s_refptr<Symbol> value = state_.ApplyRightUnaryOperator(op, operand, error);
    return Describe(value, error);
  }
  std::string Behind(const char* op, const s_refptr<Symbol>& operand, s_str error = "") {
    const s_refptr<Symbol> value = state_.ApplyLeftUnaryOperator(op, operand, error);
    return Describe(value, error);
  }
  std::string Between(const char* op, const s_refptr<Symbol>& left, const s_refptr<Symbol>& right,
                      s_str error = "") {
    const s_refptr<Symbol> value = state_.ApplyBinaryOperator(op, left, right, error);
    return Describe(value, error);
  }

  Session session_;
  State& state_ = session_.GetState();
};

TEST_F(FailureTest, OperatorsAreAppliedByHandAfterARing) {
  const s_refptr<Symbol> word = session_.Parse("'ab");
  MeetTheRing();
  EXPECT_EQ(Before("-", FromNumber(2)), "-2");
  MeetTheRing();
  EXPECT_EQ(Behind("!", word), "abab");
  MeetTheRing();
  EXPECT_EQ(Between("+", FromNumber(2), FromNumber(3)), "5");
  MeetTheRing();
  EXPECT_EQ(Between("+", word, word), "abab");
}

TEST_F(FailureTest, OperatorsAreAppliedByHandAfterARingIsShown) {
  const s_refptr<Symbol> ring = state_.GetSymbol("ring");
  EXPECT_EQ(ToText(ring), "ring+1");
  EXPECT_EQ(Before("-", FromNumber(2)), "-2");
  EXPECT_EQ(GetTypeName(ring), "Reference");
  EXPECT_EQ(Behind("!", session_.Parse("'ab")), "abab");
  EXPECT_EQ(ToNumber(ring), std::nullopt);
  EXPECT_EQ(Before("!", FromNumber(4)), "24");
}

TEST_F(FailureTest, AnOperatorThatIsAppliedToARingByHandSaysWhyItFails) {
  const s_refptr<Symbol> ring = state_.GetSymbol("ring");
  const s_refptr<Symbol> one = FromNumber(1);
  const std::string kNull = "null ";
  EXPECT_EQ(Before("-", ring), kNull + kRing);
  EXPECT_EQ(Behind("!", ring), kNull + kRing);
  EXPECT_EQ(Between("+", ring, one), kNull + kRing);
  EXPECT_EQ(Between("+", one, ring), kNull + kRing);
  session_.Type("x=1;v=<1, &x>;x&=x+1");
  EXPECT_EQ(Between("*", one, state_.GetSymbol("v")),
            kNull + "\tError : Reference 'x+1' leads back to itself");
  EXPECT_EQ(Before("-", ring, "\tError : Another"), kNull + "\tError : Another\n" + kRing);
}

// What fails without a word.
s_bool FailSilently(State&, const Values&, Values&, s_str&) { return false; }
s_bool GiveNull(State&, const Values&, Values& results, s_str&) {
  results.PushBack({});
  return true;
}
s_refptr<Symbol> BuildNothing(State&, const s_str&, const s_str&, s_str&) { return {}; }
s_refptr<Symbol> JoinToNothing(s_refptr<Symbol>, s_refptr<Symbol>, s_str&) { return {}; }
s_refptr<Symbol> TurnToNothing(s_refptr<Symbol>, s_str&) { return {}; }

class SilentFailureTest : public FailureTest {
 protected:
  SilentFailureTest() {
    state_.AddType({"Nothing", [](const s_str& name) { return s_refptr<Symbol>(new Symbol(name)); },
                    [](std::string_view text) -> s_bool { return text == "@"; }, BuildNothing});
    state_.AddFunctions({
        {"fails", {""},       FailSilently},
        {"gives", {""},       GiveNull    },
        {"gives", {"Scalar"}, GiveNull    },
    });
    state_.AddBinary({
        {"Scalar", "^", "Scalar", JoinToNothing}
    });
    state_.AddRightUnary({
        {"^", "Scalar", TurnToNothing}
    });
    state_.AddLeftUnary({
        {"^", "Scalar", TurnToNothing}
    });
  }
};

TEST_F(SilentFailureTest, HasNoValueAndNoWords) {
  for (const char* expression :
       {"fails()", "gives()", "gives(1)", "2^3", "^2", "2^", "@", "1+fails()", "<1, 2^3>",
        "min(gives(), 1)", "1+2+gives()", "-(2^3)", "<1, 2>[@]"}) {
    const Result result = state_.Compute(expression);
    EXPECT_FALSE(result.value) << expression;
    EXPECT_EQ(result.error, "") << expression;
    EXPECT_EQ(session_.Type(expression), "\n") << expression;
  }
}

TEST_F(SilentFailureTest, HasNoWordsForAFunctionThatComputesEither) {
  std::string error = "not called";
  state_.AddFunction("asks", {""}, [&](State& state, const Values&, Values&, s_str&) -> s_bool {
    error = state.Compute("1+fails()").error;
    return false;
  });
  EXPECT_EQ(state_.Compute("asks()").error, "");
  EXPECT_EQ(error, "");
}

TEST_F(SilentFailureTest, DoesNotHideAnErrorThatWasThereBefore) {
  s_str error = "\tError : Another";
  EXPECT_FALSE(state_.ParseSymbol("", "2^3", error, false));
  EXPECT_EQ(error.Get(), "\tError : Another");
}

// A function that notes an error of its own, looks at a reference that fails, and then reads what
// it noted: nobody else writes into that text.
TEST_F(FailureTest, EvaluationsInsideOneThatNobodyHearsHaveErrorsOfTheirOwn) {
  const s_refptr<Symbol> lost = session_.Parse("&zz");
  std::string noted;
  state_.AddFunction("notes", {""}, [&](State&, const Values&, Values&, s_str& error) -> s_bool {
    error = "\tError : Noted";
    EXPECT_EQ(GetTypeName(lost), "Reference");
    EXPECT_EQ(ToText(lost), "zz");
    noted = error.Get();
    return false;
  });
  const s_refptr<Symbol> reference = session_.Parse("&notes()");
  EXPECT_EQ(GetTypeName(reference), "Reference");
  EXPECT_EQ(noted, "\tError : Noted");
  noted.clear();
  EXPECT_EQ(session_.Evaluate("1+(&notes())"), "Reference : (1)+(notes())");
  EXPECT_EQ(noted, "\tError : Noted");
  EXPECT_EQ(EvaluateReference(reference).error, "\tError : Noted");
}

TEST_F(FailureTest, OfALineHaveAPlaceInIt) {
  const struct {
    const char* line;
    Place place;
  } kRows[] = {
      {"1+zz",         {2, 2} },
      {"x=2*yy",       {4, 2} },
      {"x=1; 1+zz",    {7, 2} },
      {"zz+1;3*uu;4",  {0, 2} }, // the first one counts
      {"// 1+zz;2*yy", {10, 2}},
      {"1+1",          {}     },
      {"1;?no",        {3, 2} },
      {"",             {}     },
  };
  for (const auto& row : kRows) {
    session_.Type(row.line);
    EXPECT_EQ(session_.GetState().GetFailure().place, row.place) << row.line;
  }
}

// A function that carries out a line of its own.
TEST_F(FailureTest, HaveTheirPlaceAfterALineWithinTheLine) {
  const auto type = [](State& state, const Values&, Values& results, s_str&) -> s_bool {
    state.ProcessLine("another line");
    results.PushBack(FromNumber(1));
    return true;
  };
  state_.AddFunction("typed", {""}, type);
  session_.Type("typed();1+zz");
  EXPECT_EQ(state_.GetFailure().place, (Place{10, 2}));
}

}  // namespace
}  // namespace Quarn

// Tests of registration while something is running, and of what a registration keeps.
#include <gtest/gtest.h>

#include <string>

#include "tests/support/foreign_types.h"
#include "tests/support/session.h"
#include "types/value.h"

namespace Quarn {
namespace {

class RegistrationTest : public testing::Test {
 protected:
  std::string Compute(const std::string& expression) {
    const Result result = state_.Compute(expression);
    return result ? ToText(result.value) : result.error;
  }

  Session session_;
  State& state_ = session_.GetState();
};

// Registers next(Scalar), which registers the one that follows it under the same name, and then
// gives its own number. What it holds must be its own up to its end, whether that is small or not.
void RegisterNext(State& state, int number) {
  state.AddFunction("next", {"Scalar"},
                    [number](State& own, const Values&, Values& results, s_str&) -> s_bool {
                      RegisterNext(own, number + 1);
                      results.PushBack(FromNumber(number));
                      return true;
                    });
}
void RegisterLongNext(State& state, const std::string& text) {
  state.AddFunction("longer", {""},
                    [text](State& own, const Values&, Values& results, s_str&) -> s_bool {
                      RegisterLongNext(own, text + "-");
                      results.PushBack(FromNumber(static_cast<double>(text.size())));
                      return true;
                    });
}

TEST_F(RegistrationTest, AFunctionMayRegisterItsOwnNameAnew) {
  RegisterNext(state_, 1);
  EXPECT_EQ(Compute("next(0)"), "1");
  EXPECT_EQ(Compute("next(0)"), "2");
  EXPECT_EQ(Compute("next(0)*100+next(0)*10+next(0)"), "345");
  EXPECT_EQ(Compute("next(next(next(0)))"), "8");
  RegisterLongNext(state_, std::string(100, '-'));
  EXPECT_EQ(Compute("longer()+longer()"), "201");
  EXPECT_EQ(session_.Type("longer()"), "\tScalar : 102\n");
}

TEST_F(RegistrationTest, AnOperatorMayRegisterItselfAnew) {
  struct Next {
    static void Binary(State& state, int number) {
      state.AddBinary({
          {"Scalar", "^", "Scalar",
           [&state, number](const s_refptr<Symbol>&, const s_refptr<Symbol>&, s_str&) {
             Binary(state, number + 1);
             return FromNumber(number);
           }}
      });
    }
    static void Right(State& state, int number) {
      state.AddRightUnary({
          {"^", "Scalar", [&state, number](const s_refptr<Symbol>&, s_str&) {
             Right(state, number + 1);
             return FromNumber(number);
           }}
      });
    }
    static void Left(State& state, int number) {
      state.AddLeftUnary({
          {"^", "Scalar", [&state, number](const s_refptr<Symbol>&, s_str&) {
             Left(state, number + 1);
             return FromNumber(number);
           }}
      });
    }
  };
  Next::Binary(state_, 1);
  Next::Right(state_, 1);
  Next::Left(state_, 1);
  EXPECT_EQ(Compute("0^0*100+0^0*10+0^0"), "123");
  EXPECT_EQ(Compute("(^0)*100+(^0)*10+(^0)"), "123");
  EXPECT_EQ(Compute("(0^)*100+(0^)*10+(0^)"), "123");
  s_str error;
  EXPECT_EQ(ToNumber(state_.ApplyBinaryOperator("^", FromNumber(0), FromNumber(0), error)), 4);
  EXPECT_EQ(ToNumber(state_.ApplyRightUnaryOperator("^", FromNumber(0), error)), 4);
  EXPECT_EQ(ToNumber(state_.ApplyLeftUnaryOperator("^", FromNumber(0), error)), 4);
}

TEST_F(RegistrationTest, ManyReplacementsInOneEvaluationEndWithTheLast) {
  RegisterNext(state_, 0);
  std::string sum = "next(0)";
  for (int i = 0; i < 1000; ++i) sum += "+next(0)";
  EXPECT_EQ(Compute(sum), "500500");
  EXPECT_EQ(Compute("next(0)"), "1001");
}

// The arguments are evaluated when the function is already found.
TEST_F(RegistrationTest, AnArgumentMayRegisterManyFunctions) {
  state_.AddFunction("many", {""},
                     [](State& state, const Values&, Values& results, s_str&) -> s_bool {
                       for (int i = 0; i < 1000; ++i) RegisterNext(state, i);
                       for (int i = 0; i < 1000; ++i) {
                         state.AddFunction("f" + std::to_string(i), {""}, Function());
                       }
                       results.PushBack(FromNumber(5));
                       return true;
                     });
  EXPECT_EQ(Compute("max(many(), 1)"), "5");
  EXPECT_EQ(Compute("next(0)"), "999");
}

TEST_F(RegistrationTest, TheCharactersThatBeginLiteralsAreTheStatesOwn) {
  {
    std::string starts = "#";
    const TypeRow row{"Hashed", [](const s_str&) { return FromNumber(0); },
                      [](std::string_view text) -> s_bool { return text.ends_with("$"); },
                      [](State&, const s_str&, const s_str&, s_str&) { return FromNumber(7); },
                      starts.c_str()};
    state_.AddType(row);
    starts = "x";
  }
  // Another registration looks at the characters of all types again.
  RegisterDigits(state_, "Another");
  EXPECT_EQ(Compute("#1$"), "7");
  EXPECT_EQ(Compute("x1$"), "\tError : Unable to parse expression 'x1$', no operator found");
}

// No expression could ever use it: a mistake of whoever writes the row, found where there are
// assertions. The types of a row may be registered later, so nothing is said of them.
TEST(RegistrationDeathTest, AnOperatorThatTheLanguageDoesNotHaveIsAMistake) {
  Session session;
  State& state = session.GetState();
  const auto join = [](const s_refptr<Symbol>& left, const s_refptr<Symbol>&, s_str&) {
    return left;
  };
  const auto turn = [](const s_refptr<Symbol>& operand, s_str&) { return operand; };
  for (const char* op : {"%", "", "**", "[", "mod"}) {
    EXPECT_DEBUG_DEATH(state.AddBinary({
                           {"Scalar", op, "Scalar", join}
    }),
                       "op < kOperators")
        << op;
    EXPECT_DEBUG_DEATH(state.AddLeftUnary({
                           {op, "Scalar", turn}
    }),
                       "op < kOperators")
        << op;
    EXPECT_DEBUG_DEATH(state.AddRightUnary({
                           {op, "Scalar", turn}
    }),
                       "op < kOperators")
        << op;
  }
#ifdef NDEBUG
  // Without assertions a host may apply it all the same.
  s_str error;
  EXPECT_EQ(ToNumber(state.ApplyBinaryOperator("%", FromNumber(1), FromNumber(2), error)), 1);
#endif
  state.AddBinary({
      {"Later",  "^",  "Later",  join},
      {"Scalar", "[]", "Scalar", join}
  });
  EXPECT_EQ(session.Evaluate("5[7]"), "Scalar : 5");
}

}  // namespace
}  // namespace Quarn

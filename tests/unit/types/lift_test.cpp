// Tests of the adapters from plain functions on numbers to the callables of the registries.
#include "types/lift.h"

#include <gtest/gtest.h>

#include <functional>

#include "interpreter/arithmetic.h"
#include "tests/support/session.h"

namespace Quarn {
namespace {

double Seven() { return 7; }
double Twice(double x) { return 2 * x; }
double Difference(double x, double y) { return x - y; }
double Weigh(double x, double y, double z) { return x + 10 * y + 100 * z; }

double Call(const Function& function, const Values& arguments) {
  Session session;
  Values results;
  s_str error;
  EXPECT_TRUE(function(session.GetState(), arguments, results, error));
  EXPECT_EQ(results.GetSize().Get(), 1U);
  EXPECT_EQ(results[0U]->GetName().Get(), "");
  EXPECT_EQ(error.Get(), "");
  return NumberOf(*results[0U]);
}

TEST(Lift, ANumberBecomesAnUnnamedScalar) {
  const s_refptr<Symbol> number = NewNumber(2.5);
  EXPECT_EQ(number->GetType().Get(), "Scalar");
  EXPECT_EQ(number->GetName().Get(), "");
  EXPECT_EQ(NumberOf(*number), 2.5);
}

TEST(Lift, OperatorsTakeTheirOperandsInOrder) {
  s_str error;
  EXPECT_EQ(NumberOf(*Unary(Twice)(NewNumber(3), error)), 6);
  EXPECT_EQ(NumberOf(*Unary(std::negate<double>())(NewNumber(3), error)), -3);
  EXPECT_EQ(NumberOf(*Binary(Difference)(NewNumber(5), NewNumber(3), error)), 2);
  EXPECT_EQ(error.Get(), "");
}

TEST(Lift, OperandsThatSomebodyHoldsStayAsTheyWere) {
  s_str error;
  const s_refptr<Symbol> x(new Scalar("x", 3));
  const s_refptr<Symbol> y(new Scalar("y", 4));
  EXPECT_EQ(Binary(std::plus<double>())(x, y, error)->ToString().Get(), "7");
  EXPECT_EQ(Binary(Difference)(x, y, error)->ToString().Get(), "-1");
  EXPECT_EQ(Unary(Twice)(x, error)->ToString().Get(), "6");
  EXPECT_EQ(x->ToString().Get(), "x = 3");
  EXPECT_EQ(y->ToString().Get(), "y = 4");
}

TEST(Lift, RowsOfScalarsHaveTheSameFunctionForNumbersAndForObjects) {
  s_str error;
  const BinaryRow minus = OnScalars("-", Subtract);
  EXPECT_EQ(minus.left.Get() + minus.op.Get() + minus.right.Get(), "Scalar-Scalar");
  EXPECT_EQ(minus.on_numbers(5, 3), 2);
  EXPECT_EQ(NumberOf(*minus.body(NewNumber(5), NewNumber(3), error)), 2);
  const UnaryRow negate = UnaryOnScalars("-", Negate);
  EXPECT_EQ(negate.on_numbers(5), -5);
  EXPECT_EQ(NumberOf(*negate.body(NewNumber(5), error)), -5);
}

TEST(Lift, RowsOfFunctionsHaveAsManyScalarsAsTheFunctionTakes) {
  const FunctionRow none = OnScalars("f", Seven, Purity::kImpure);
  const FunctionRow one = OnScalars("f", Twice, Purity::kPure);
  const FunctionRow two = OnScalars("f", Difference, Purity::kPure);
  EXPECT_EQ(none.on_numbers.of_none(), 7);
  EXPECT_EQ(one.on_numbers.of_one(3), 6);
  EXPECT_EQ(two.on_numbers.of_two(5, 3), 2);
  EXPECT_EQ(none.arguments.GetSize().Get(), 1U);
  EXPECT_EQ(none.arguments[0U].Get(), "");
  EXPECT_EQ(two.arguments.GetSize().Get(), 2U);
  EXPECT_EQ(none.purity, Purity::kImpure);
  EXPECT_EQ(two.purity, Purity::kPure);
}

TEST(Lift, FunctionsTakeAsManyNumbersAsTheyHaveParameters) {
  EXPECT_EQ(Call(OfNumbers(Seven), {}), 7);
  EXPECT_EQ(Call(OfNumbers(Twice), {NewNumber(3)}), 6);
  EXPECT_EQ(Call(OfNumbers(Difference), {NewNumber(5), NewNumber(3)}), 2);
  EXPECT_EQ(Call(OfNumbers(Weigh), {NewNumber(1), NewNumber(2), NewNumber(3)}), 321);
}

TEST(Lift, CopyKeepsTheName) {
  s_str error;
  const s_refptr<Symbol> x(new Scalar("x", 1));
  const s_refptr<Symbol> copy = Copy(x, error);
  EXPECT_NE(copy.Get(), x.Get());
  EXPECT_EQ(copy->ToString().Get(), "x = 1");
}

State* seen = nullptr;

s_refptr<Symbol> FailUnary(State& state, const s_refptr<Symbol>& operand, s_str& error) {
  seen = &state;
  error += operand->ToString();
  return {};
}

s_refptr<Symbol> TakeRight(State& state, const s_refptr<Symbol>&, const s_refptr<Symbol>& right,
                           s_str&) {
  seen = &state;
  return right;
}

TEST(Lift, OnHandsOverTheState) {
  Session session;
  s_str error;
  EXPECT_FALSE(On(session.GetState(), FailUnary)(NewNumber(3), error));
  EXPECT_EQ(error.Get(), "3");
  EXPECT_EQ(seen, &session.GetState());
  seen = nullptr;
  EXPECT_EQ(NumberOf(*On(session.GetState(), TakeRight)(NewNumber(3), NewNumber(4), error)), 4);
  EXPECT_EQ(seen, &session.GetState());
}

}  // namespace
}  // namespace Quarn

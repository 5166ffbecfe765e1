// Tests of State: what it holds from the beginning, what is registered with it, and where its
// output goes.
#include "interpreter/state.h"

#include <gtest/gtest.h>

#include <iostream>
#include <string>

#include "tests/support/dump.h"
#include "tests/support/foreign_types.h"
#include "tests/support/session.h"
#include "types/lift.h"
#include "types/reference.h"

namespace Quarn {
namespace {

template <class Registry>
std::string Keys(const Registry& registry) {
  std::string keys;
  for (const auto& [key, value] : registry) keys += key.Get() + "|";
  return keys;
}

// A State as it is made: without Vector.
struct Bare {
  std::ostringstream out;
  std::istringstream in;
  State state{out, in};
};

Function Answer(double number) {
  return [number](State&, const Values&, Values& results, s_str&) -> s_bool {
    results.PushBack(NewNumber(number));
    return true;
  };
}

TEST(State, BeginsWithTheLastResultAlone) {
  const Bare bare;
  EXPECT_EQ(Dump(bare.state.GetSymbolNames()), "_|");
  const s_refptr<Symbol> symbol = bare.state.GetSymbol("_");
  const Symbol& last = *symbol;
  EXPECT_EQ(last.GetDeclaredType().Get(), "Reference");
  EXPECT_EQ(last.GetType().Get(), "Reference");
  EXPECT_EQ(last.GetName().Get(), "");
  EXPECT_EQ(last.ToString().Get(), "null");
  EXPECT_EQ(static_cast<const Reference&>(last).GetExpression().Get(), "");
}

TEST(State, KnowsThreeTypesUntilOthersAreRegistered) {
  Bare bare;
  EXPECT_EQ(Keys(bare.state.GetTypes()), "Reference|Scalar|Symbol|");
  Vector::Register(bare.state);
  EXPECT_EQ(Keys(bare.state.GetTypes()), "Reference|Scalar|Symbol|Vector|");
}

TEST(State, HoldsTheOperatorsOfScalar) {
  const Bare bare;
  EXPECT_EQ(Keys(bare.state.GetBinaryOperators()), "*|+|-|/|");
  EXPECT_EQ(Keys(bare.state.GetRightUnaryOperators()), "!|+|-|");
  EXPECT_EQ(Keys(bare.state.GetLeftUnaryOperators()), "");
  for (const auto& [op, by_left] : bare.state.GetBinaryOperators()) {
    EXPECT_EQ(Keys(by_left), "Scalar|") << op.Get();
    EXPECT_EQ(Keys(by_left.begin()->second), "Scalar|") << op.Get();
  }
}

TEST(State, HoldsTheFunctionsOfScalarUnderTheirSignatures) {
  const Bare bare;
  std::string calls;
  for (const auto& [name, overloads] : bare.state.GetFunctions()) {
    calls += name.Get() + " " + Keys(overloads) + " ";
  }
  EXPECT_EQ(calls,
            "max (Scalar, Scalar)| min (Scalar, Scalar)| rand ()|(Scalar, Scalar)| round (Scalar)| "
            "round_down (Scalar)| round_up (Scalar)| ");
}

TEST(State, TheSymbolCreatorMakesASymbolOfThatName) {
  const Bare bare;
  const s_refptr<Symbol> symbol =
      bare.state.GetTypes().find(std::string_view("Symbol"))->second.create("ab");
  EXPECT_EQ(symbol->GetType().Get(), "Symbol");
  EXPECT_EQ(symbol->GetName().Get(), "ab");
  EXPECT_EQ(symbol->ToString().Get(), "ab");
}

TEST(State, KeepsTheLastOfTwoFunctionsWithTheSameArguments) {
  Bare bare;
  bare.state.AddFunction("f", {"Scalar"}, Answer(1));
  bare.state.AddFunction("f", {"Scalar"}, Answer(2));
  bare.state.AddFunctions({
      {"f", {"Scalar", "Scalar"}, Answer(3)},
      {"f", {""},                 Answer(4)},
  });
  EXPECT_EQ(Keys(bare.state.GetFunctions().find(std::string_view("f"))->second),
            "()|(Scalar)|(Scalar, Scalar)|");
  bare.state.ProcessLine("f(0);f(0, 0);f()");
  EXPECT_EQ(bare.out.str(), "\tScalar : 2\n\tScalar : 3\n\tScalar : 4\n");
}

TEST(State, NoArgumentsAndOneWithoutATypeAreTheSameSignature) {
  Bare bare;
  bare.state.AddFunction("f", {""}, Answer(1));
  bare.state.AddFunction("f", {}, Answer(2));
  bare.state.ProcessLine("f()");
  EXPECT_EQ(bare.out.str(), "\tScalar : 2\n");
}

TEST(State, ALaterRegistrationOfATypeTakesItsPlace) {
  Bare bare;
  RegisterDigits(bare.state, "Scalar");
  EXPECT_EQ(Keys(bare.state.GetTypes()), "Reference|Scalar|Symbol|");
  bare.state.ProcessLine("x=12;y=1.5;z:Scalar");
  EXPECT_EQ(bare.out.str(),
            "\tDefining Symbol : x\n\tError : Unable to parse expression '1.5', no operator found\n"
            "\tDefining Scalar : z\n");
}

TEST(State, TheLastResultIsWhatIsSet) {
  Bare bare;
  const s_refptr<Symbol> value(new Scalar("x", 3));
  bare.state.SetLastResult(value);
  EXPECT_EQ(bare.state.GetSymbol("_").Get(), value.Get());
  bare.state.SetLastResult({});
  EXPECT_EQ(bare.state.GetSymbol("_")->ToString().Get(), "null");
  EXPECT_EQ(value.GetCount(), 1U);
}

TEST(State, LetsGoOfItsValuesAtItsEnd) {
  const s_refptr<Symbol> value(new Scalar("x", 3));
  {
    Bare bare;
    bare.state.SetLastResult(value);
    EXPECT_EQ(value.GetCount(), 2U);
  }
  EXPECT_EQ(value.GetCount(), 1U);
}

TEST(State, StatesDoNotShareAnything) {
  Session one, other;
  one.Type("x=1;2");
  one.GetState().AddFunction("f", {""}, Answer(1));
  EXPECT_EQ(other.Type("_"), "\tReference : null\n");
  EXPECT_EQ(other.Type("?x"), "\tError : Unknown symbol 'x'\n");
  EXPECT_EQ(other.Type("f()"), "\tError : Undefined function 'f'\n");
}

TEST(State, AFunctionMayUseTheStateThatCallsIt) {
  Session session;
  session.GetState().AddFunction(
      "twice", {"Scalar"},
      [](State& state, const Values& arguments, Values& results, s_str& error) -> s_bool {
        results.PushBack(state.ApplyBinaryOperator("+", arguments[0U], arguments[0U], error));
        s_str unused;
        return state.ParseSymbol("", "1+2*min(3, 4)", unused, false).Get() != nullptr;
      });
  EXPECT_EQ(session.Evaluate("twice(twice(3)+1)*2"), "Scalar : 28");
}

}  // namespace
}  // namespace Quarn

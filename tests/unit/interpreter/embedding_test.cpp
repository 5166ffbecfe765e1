// Tests of what State does for a host program: values and error texts instead of printed lines.
#include "interpreter/embedding.h"

#include <gtest/gtest.h>

#include <iomanip>
#include <iostream>
#include <vector>

#include "tests/support/foreign_types.h"
#include "tests/support/session.h"
#include "types/value.h"

namespace Quarn {
namespace {

class EmbeddingTest : public testing::Test {
 protected:
  EmbeddingTest() : state_(out_, in_) { Vector::Register(state_); }
  ~EmbeddingTest() override { EXPECT_EQ(out_.str(), "") << "something was printed"; }

  std::ostringstream out_;
  std::istringstream in_;
  State state_;
};

TEST_F(EmbeddingTest, AnExpressionGivesAValueOrAnErrorAndNeverBoth) {
  const struct {
    const char* expression;
    const char* value;
    const char* error;
  } kRows[] = {
      {"1+2",      "3",      ""                                                             },
      {" <1,2>*2", "<2, 4>", ""                                                             },
      {"&1+1",     "2",      ""                                                             },
      {"!4",       "24",     ""                                                             },
      {"zz",       "",       "\tError : Unknown symbol 'zz'"                                },
      {"",         "",       "\tError : Empty symbol"                                       },
      {"(1",       "",       "\tError : Unterminated '('"                                   },
      {"1 2",      "",       "\tError : Unable to parse expression '1 2', no operator found"},
      {"f(1)",     "",       "\tError : Undefined function 'f'"                             },
      {"<>[0]",    "",       "\tError : Cannot index an empty Vector"                       },
      {"?",        "",       "\tError : Unable to parse expression '?', no operator found"  },
  };
  for (const auto& row : kRows) {
    const Result result = state_.Compute(row.expression);
    EXPECT_EQ(static_cast<bool>(result), result.error.empty()) << row.expression;
    EXPECT_EQ(ToText(result.value), row.value) << row.expression;
    EXPECT_EQ(result.error, row.error) << row.expression;
  }
}

TEST_F(EmbeddingTest, AReferenceIsSetAsItWouldBeDefined) {
  const Result reference = state_.SetReference("r", " x+1 ");
  ASSERT_TRUE(reference);
  EXPECT_EQ(reference.value->GetDeclaredType(), "Reference");
  EXPECT_EQ(EvaluateReference(reference.value).error, "\tError : Unknown symbol 'x'");
  state_.SetSymbol("x", FromNumber(1));
  EXPECT_EQ(ToText(state_.Compute("2*r").value), "4");
  state_.SetSymbol("x", FromNumber(2));
  EXPECT_EQ(ToText(state_.Compute("2*r").value), "6");
  EXPECT_TRUE(state_.SetReference("r", "((")) << "it fails when it is evaluated";
  EXPECT_EQ(EvaluateReference(state_.GetSymbol("r")).error, "\tError : Unterminated '('");
  EXPECT_TRUE(state_.SetReference("r", ""));
  EXPECT_EQ(ToText(state_.GetSymbol("r")), "null");
}

TEST_F(EmbeddingTest, AReferenceIsRefusedUnderNamesThatNothingCanAskFor) {
  for (const char* name : {"", "a b", "7", "_"}) {
    const Result refused = state_.SetReference(name, "1");
    EXPECT_FALSE(refused) << name;
    EXPECT_EQ(refused.error, state_.SetSymbol(name, FromNumber(1)).error) << name;
  }
}

TEST_F(EmbeddingTest, ComputingChangesNoSymbol) {
  ASSERT_TRUE(state_.SetSymbol("x", FromNumber(1)));
  EXPECT_FALSE(state_.Compute("x=2"));
  EXPECT_FALSE(state_.Compute("y"));
  EXPECT_TRUE(state_.Compute("x+1"));
  EXPECT_EQ(state_.GetSymbolNames().GetSize().Get(), 2U);
  EXPECT_EQ(ToText(state_.GetSymbol("_")), "null");
  EXPECT_EQ(ToNumber(state_.GetSymbol("x")), 1);
}

TEST_F(EmbeddingTest, AReferenceThatLeadsBackToItselfIsAnErrorLikeOthers) {
  state_.SetSymbol("r", state_.Compute("&r+1").value);
  EXPECT_EQ(state_.Compute("r*2").error, "\tError : Reference '(r)+(1)' leads back to itself");
  EXPECT_EQ(ToNumber(state_.Compute("1+1").value), 2);
}

// Where a host's function finds that the nesting is too deep, it is told so there and then.
TEST_F(EmbeddingTest, AFunctionThatComputesItselfIsToldThatItIsNestedTooDeeply) {
  std::vector<std::string> errors;
  state_.AddFunction("again", {""}, [&](State& state, const Values&, Values&, s_str&) -> s_bool {
    errors.push_back(state.Compute("again()").error);
    return false;
  });
  const char kTooDeep[] = "\tError : Expression is nested too deeply";
  EXPECT_EQ(state_.Compute("again()").error, kTooDeep);
  ASSERT_FALSE(errors.empty());
  EXPECT_EQ(errors.front(), kTooDeep);
}

TEST_F(EmbeddingTest, AFunctionOfTheHostMayComputeToo) {
  state_.AddFunction("twice", {"Scalar"},
                     [](State& state, const Values& arguments, Values& results, s_str&) -> s_bool {
                       state.SetSymbol("argument", arguments[0U]);
                       results.PushBack(state.Compute("2*argument").value);
                       return true;
                     });
  EXPECT_EQ(ToNumber(state_.Compute("twice(3)+1").value), 7);
}

TEST_F(EmbeddingTest, ASymbolIsSetReadAndErased) {
  const Result set = state_.SetSymbol("x", FromNumber(2.5));
  ASSERT_TRUE(set);
  EXPECT_EQ(set.value->ToString().Get(), "x = 2.5");
  EXPECT_EQ(ToNumber(state_.GetSymbol("x")), 2.5);
  EXPECT_EQ(ToNumber(state_.Compute("2*x").value), 5);
  EXPECT_TRUE(state_.EraseSymbol("x"));
  EXPECT_FALSE(state_.EraseSymbol("x"));
  EXPECT_FALSE(state_.GetSymbol("x"));
}

TEST_F(EmbeddingTest, ASymbolIsSetToACopy) {
  const s_refptr<Symbol> number = FromNumber(1);
  state_.SetSymbol("x", number);
  state_.SetSymbol("y", state_.GetSymbol("x"));
  EXPECT_EQ(number->GetName().Get(), "");
  EXPECT_EQ(state_.GetSymbol("x")->ToString().Get(), "x = 1");
  EXPECT_EQ(state_.GetSymbol("y")->ToString().Get(), "y = 1");
}

TEST_F(EmbeddingTest, ASymbolWithABadNameIsNotSet) {
  EXPECT_EQ(state_.SetSymbol("a b", FromNumber(1)).error,
            "\tError : Only alphanumeric names are allowed for symbols, in 'a b'");
  EXPECT_EQ(state_.SetSymbol("_", FromNumber(1)).error,
            "\tError : Reference to last result '_' is not assignable");
  EXPECT_EQ(state_.GetSymbolNames().GetSize().Get(), 1U);
}

TEST_F(EmbeddingTest, ASymbolIsNotSetToNothing) {
  EXPECT_EQ(state_.SetSymbol("x", {}).error, "\tError : No value to give to symbol 'x'");
  EXPECT_EQ(state_.SetSymbol("a b", {}).error,
            "\tError : Only alphanumeric names are allowed for symbols, in 'a b'");
  ASSERT_TRUE(state_.SetSymbol("x", FromNumber(1)));
  EXPECT_FALSE(state_.SetSymbol("x", state_.Compute("zz").value));
  EXPECT_EQ(ToNumber(state_.GetSymbol("x")), 1);
  EXPECT_EQ(state_.GetSymbolNames().GetSize().Get(), 2U);
}

TEST_F(EmbeddingTest, ASymbolIsNotGivenANameThatNoExpressionCanAskFor) {
  for (const char* name : {"", "7", "007", "e5", "12e3"}) {
    EXPECT_EQ(state_.SetSymbol(name, FromNumber(1)).error,
              std::string("\tError : No expression can ask for a symbol named '") + name + "'");
  }
  for (const char* name : {"e", "E5", "7x", "x7", "e5e", "nan", "inf"}) {
    EXPECT_TRUE(state_.SetSymbol(name, FromNumber(5))) << name;
    EXPECT_EQ(ToNumber(state_.Compute(std::string(name) + "+1").value), 6) << name;
  }
  // A type from outside has literals of its own.
  state_.AddType({"Name", [](const s_str& name) { return s_refptr<Symbol>(new Symbol(name)); },
                  [](std::string_view text) -> s_bool { return text == "E5"; },
                  [](State&, const s_str&, const s_str&, s_str&) { return FromNumber(0); }});
  EXPECT_FALSE(state_.SetSymbol("E5", FromNumber(1)));
}

TEST_F(EmbeddingTest, TheLastResultIsReadButNotErased) {
  EXPECT_TRUE(state_.GetSymbol("_"));
  EXPECT_FALSE(state_.EraseSymbol("_"));
  EXPECT_TRUE(state_.GetSymbol("_"));
}

TEST_F(EmbeddingTest, EverythingIsFoundByWalking) {
  Word::Register(state_);
  state_.SetSymbol("b", FromNumber(1));
  state_.SetSymbol("a", FromNumber(2));
  std::string names;
  for (const s_str& name : state_.GetSymbolNames()) names += name.Get() + " ";
  for (const auto& [type, row] : state_.GetTypes()) names += type.Get() + " ";
  for (const auto& [op, by_type] : state_.GetLeftUnaryOperators()) names += op.Get() + " ";
  for (const auto& [op, by_type] : state_.GetRightUnaryOperators()) names += op.Get() + " ";
  for (const auto& [function, overloads] : state_.GetFunctions()) names += function.Get() + " ";
  EXPECT_EQ(names,
            "_ a b Reference Scalar Symbol Vector Word ! ! + - max min rand round round_down "
            "round_up ");

  std::string sums;
  for (const auto& [left, by_right] : state_.GetBinaryOperators().find("+")->second) {
    for (const auto& [right, body] : by_right) sums += left.Get() + "+" + right.Get() + " ";
  }
  EXPECT_EQ(sums, "Scalar+Scalar Vector+Vector Word+Word ");
}

TEST(Embedding, StreamFlagsOfTheHostChangeNoLine) {
  std::ostringstream plain, odd;
  std::istringstream no, also_no;
  State first(plain, no);
  State second(odd, also_no);
  for (const char* line : {"x=255", "x/2", "zz+", "~x", "?", "~"}) {
    odd << std::hex << std::showbase << std::uppercase << std::fixed << std::setprecision(2)
        << std::setfill('*') << std::setw(40);
    first.ProcessLine(line);
    second.ProcessLine(line);
    EXPECT_EQ(odd.str(), plain.str()) << line;
  }
}

}  // namespace
}  // namespace Quarn

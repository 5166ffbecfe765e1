// Tests of values as plain C++.
#include "types/value.h"

#include <gtest/gtest.h>

#include <cmath>

#include "tests/support/foreign_types.h"
#include "tests/support/session.h"

namespace Quarn {
namespace {

using Numbers = std::vector<double>;

class ValueTest : public testing::Test {
 protected:
  s_refptr<Symbol> Parse(const std::string& expression) { return session_.Parse(expression); }

  Session session_;
};

TEST_F(ValueTest, ANumberComesOutOfAScalarAlone) {
  EXPECT_EQ(ToNumber(Parse("1/4")), 0.25);
  EXPECT_TRUE(std::isnan(ToNumber(Parse("0/0")).value()));
  EXPECT_FALSE(ToNumber(Parse("<1>")));
  EXPECT_FALSE(ToNumber(Parse("zz")));
  EXPECT_FALSE(ToNumber({}));
}

TEST_F(ValueTest, AReferenceCountsAsWhatItComesTo) {
  session_.Type("x=1;r&=x+1;s&=zz;n:Reference");
  State& state = session_.GetState();
  EXPECT_EQ(ToNumber(state.GetSymbol("r")), 2);
  session_.Type("x=<1, 2>;r&=x+x");
  EXPECT_EQ(ToNumbers(state.GetSymbol("r")), (Numbers{2, 4}));
  EXPECT_FALSE(ToNumber(state.GetSymbol("r")));
  EXPECT_FALSE(ToNumber(state.GetSymbol("s")));
  EXPECT_FALSE(ToNumber(state.GetSymbol("n")));
}

TEST_F(ValueTest, NumbersComeOutOfAVectorOfScalars) {
  EXPECT_EQ(ToNumbers(Parse("<1, 2>*3")), (Numbers{3, 6}));
  EXPECT_EQ(ToNumbers(Parse("<>")), Numbers());
  EXPECT_EQ(ToNumbers(Parse("<1, &2>")), (Numbers{1, 2}));
  EXPECT_FALSE(ToNumbers(Parse("<<1>, <2>>")));
  EXPECT_FALSE(ToNumbers(Parse("1")));
  EXPECT_FALSE(ToNumbers({}));
}

TEST_F(ValueTest, ElementsComeOutOfAnyVector) {
  const auto elements = ToElements(Parse("<<1>, <2>>"));
  ASSERT_TRUE(elements);
  ASSERT_EQ(elements->size(), 2U);
  EXPECT_EQ(ToNumbers(elements->at(1)), Numbers{2});
  EXPECT_FALSE(ToElements(Parse("1")));
}

TEST_F(ValueTest, TextIsWithoutTheName) {
  session_.Type("x=1;v=<1, 2>;r&=x+1;s&=zz;a");
  const struct {
    const char* name;
    const char* text;
    const char* type;
  } kRows[] = {
      {"x", "1",      "Scalar"   },
      {"v", "<1, 2>", "Vector"   },
      {"r", "2",      "Scalar"   },
      {"s", "zz",     "Reference"}, // nothing that it comes to
      {"a", "a",      "Symbol"   },
      {"b", "",       ""         }, // there is none
  };
  for (const auto& row : kRows) {
    const s_refptr<Symbol> value = session_.GetState().GetSymbol(row.name);
    EXPECT_EQ(ToText(value), row.text) << row.name;
    EXPECT_EQ(GetTypeName(value), row.type) << row.name;
  }
}

TEST(Value, PlainValuesGoIn) {
  EXPECT_EQ(ToText(FromNumber(2.5)), "2.5");
  EXPECT_EQ(ToText(FromNumbers({1, 2, 3})), "<1, 2, 3>");
  EXPECT_EQ(ToText(FromNumbers({})), "<>");
  EXPECT_EQ(ToText(FromElements({FromNumbers({1, 2}), FromNumbers({3, 4})})), "<<1, 2>, <3, 4>>");
}

TEST(Value, ElementsOfDifferentTypesMakeNoVector) {
  EXPECT_FALSE(FromElements({FromNumber(1), FromNumbers({1})}));
  EXPECT_FALSE(FromElements({FromNumbers({1}), FromNumbers({1, 2})}));
  EXPECT_FALSE(FromElements({FromNumber(1), {}}));
}

TEST_F(ValueTest, ElementsLoseTheirNames) {
  session_.Type("x=1;y=2;v=<3>;r&=x");
  State& state = session_.GetState();
  const s_refptr<Symbol> unnamed = FromNumber(7);
  const s_refptr<Symbol> vector =
      FromElements({state.GetSymbol("x"), state.GetSymbol("y"), unnamed});
  EXPECT_EQ(ToText(vector), "<1, 2, 7>");
  EXPECT_EQ(unnamed.GetCount(), 2U) << "one without a name is shared";
  EXPECT_EQ(ToText(FromElements({state.GetSymbol("v")})), "<<3>>");
  state.SetSymbol("w", vector);
  EXPECT_EQ(session_.Type("?w"), "\tVector : w = <1, 2, 7>\n");
  EXPECT_EQ(session_.Type("?x"), "\tScalar : x = 1\n");
  EXPECT_EQ(session_.Type("w[0];w+w"), "\tScalar : 1\n\tVector : <2, 4, 14>\n");
}

TEST_F(ValueTest, ReferencesAreElementsAsInALiteral) {
  session_.Type("x=1;v=<1, 2>;r&=x;w&=v;lost&=zz");
  State& state = session_.GetState();
  const auto get = [&](const char* name) { return state.GetSymbol(name); };
  EXPECT_EQ(ToText(FromElements({FromNumber(5), get("r")})), "<5, 1>");
  EXPECT_EQ(ToText(FromElements({get("r"), FromNumber(5), get("r")})), "<1, 5, 1>");
  state.SetSymbol("late", FromElements({FromNumber(5), get("r")}));
  EXPECT_EQ(session_.TypeLast("x=3\nlate"), "\tVector : <5, 3>\n");
  EXPECT_FALSE(FromElements({get("r")}));
  EXPECT_FALSE(FromElements({get("r"), get("r")}));
  EXPECT_FALSE(FromElements({FromNumber(5), get("w")}));
  EXPECT_FALSE(FromElements({FromNumber(5), get("lost")}));
  EXPECT_FALSE(FromElements({FromNumbers({1, 2}), get("w")}));
}

TEST_F(ValueTest, AReferenceSaysWhyItComesToNothing) {
  session_.Type("x=1;r&=x+1;s&=r;lost&=zz+1;through&=lost;n:Reference;a;sum&=<1>+a;self&=self");
  session_.Type("ring&=ring+1;first&=second;second&=first;empty&= ;null&=n");
  const struct {
    const char* expression;
    const char* text;
    const char* error;
  } kRows[] = {
      {"r",       "2",      ""                                                 },
      {"s",       "2",      ""                                                 },
      {"x",       "1",      ""                                                 },
      {"<1, r>",  "<1, 2>", ""                                                 },
      {"lost",    "",       "\tError : Unknown symbol 'zz'"                    },
      {"through", "",       "\tError : Unknown symbol 'zz'"                    },
      {"&min(1)", "",
       "\tError : No matching function call to :\n\t\t  min(Scalar)\n"
       "\t\tPossible candidates :\n\t\t  min(Scalar, Scalar)"                  },
      {"sum",     "",
       "\tError : No match for operator 'Vector + Symbol' in :\n"
       "\t        \t<1> + a"                                                   },
      {"n",       "",       "\tError : Empty symbol"                           },
      {"null",    "",       "\tError : Empty symbol"                           },
      {"empty",   "",       "\tError : Empty symbol"                           },
      {"ring",    "",       "\tError : Reference 'ring+1' leads back to itself"},
      {"self",    "",       "\tError : Reference 'self' leads back to itself"  },
      {"first",   "",       "\tError : Reference 'second' leads back to itself"},
  };
  for (const auto& row : kRows) {
    const Result computed = session_.GetState().Compute(row.expression);
    ASSERT_TRUE(computed) << row.expression;
    const Result result = EvaluateReference(computed.value);
    EXPECT_EQ(static_cast<bool>(result), *row.error == 0) << row.expression;
    EXPECT_EQ(ToText(result.value), row.text) << row.expression;
    EXPECT_EQ(result.error, row.error) << row.expression;
  }
  const Result nothing = EvaluateReference(s_refptr<Symbol>());
  EXPECT_FALSE(nothing);
  EXPECT_EQ(nothing.error, "");
}

// Why it fails is found out by another evaluation.
TEST_F(ValueTest, AReferenceThatFailsEverySecondTimeHasAValue) {
  int calls = 0;
  session_.GetState().AddFunction(
      "moody", {""}, [&calls](State&, const Values&, Values& results, s_str& error) -> s_bool {
        if (++calls % 2 == 1) {
          error += "\tError : Not now";
          return false;
        }
        results.PushBack(FromNumber(7));
        return true;
      });
  session_.GetState().SetReference("r", "moody()");
  EXPECT_EQ(ToText(EvaluateReference(session_.GetState().GetSymbol("r")).value), "7");
  EXPECT_EQ(calls, 2);
}

TEST_F(ValueTest, AResultIsFollowedAndAFailureStaysAsItIs) {
  session_.Type("x=2;r&=x+1;s&=zz+1");
  State& state = session_.GetState();
  const struct {
    const char* expression;
    const char* text;
    Failure failure;
  } kRows[] = {
      {"x",    "2",                             Failure::kNone       },
      {"2*r",  "6",                             Failure::kNone       },
      {"2*s",  "\tError : Unknown symbol 'zz'", Failure::kUnknownName},
      {"2*(x", "\tError : Unterminated '('",    Failure::kForm       },
  };
  for (const auto& row : kRows) {
    const Result result = EvaluateReference(state.Compute(row.expression));
    EXPECT_EQ(result ? ToText(result.value) : result.error, row.text) << row.expression;
    EXPECT_EQ(result.failure, row.failure) << row.expression;
  }
  EXPECT_EQ(EvaluateReference(state.Compute("2*(x")).place, (Place{2, 1}));
}

TEST_F(ValueTest, AReferenceFromTextFollowsItsState) {
  State& state = session_.GetState();
  const s_refptr<Symbol> reference = FromReference(state, "later+1");
  EXPECT_EQ(ToText(reference), "later+1");
  EXPECT_EQ(reference->GetDeclaredType(), "Reference");
  state.SetSymbol("later", FromNumber(1));
  EXPECT_EQ(ToNumber(reference), 2);
  state.SetSymbol("later", FromNumbers({1}));
  EXPECT_EQ(ToNumber(reference), std::nullopt);
  EXPECT_EQ(ToText(FromReference(state, "")), "null");

  state.SetSymbol("later", FromNumber(4));
  state.SetSymbol("both", FromElements({reference, FromNumber(9)}));
  EXPECT_EQ(ToText(state.GetSymbol("both")), "<5, 9>");
}

TEST(Value, ATypeFromOutsideThatBorrowsANameIsNotTakenForAScalar) {
  std::string log;
  EXPECT_FALSE(ToNumber(s_refptr<Symbol>(new Probe(log, "p", "Scalar"))));
}

}  // namespace
}  // namespace Quarn

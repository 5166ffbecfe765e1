// Tests of how a State takes texts for literals: which type builds one, and that a refusal never
// leaves a value behind.
#include <gtest/gtest.h>

#include "interpreter/state.h"
#include "tests/support/foreign_types.h"
#include "tests/support/session.h"
#include "types/value.h"

namespace Quarn {
namespace {

s_refptr<Symbol> NewUnset(const s_str& name) { return s_refptr<Symbol>(new Symbol(name)); }

// A type whose one literal is "33", which is a number too.
void RegisterThirtyThree(State& state) {
  state.AddType({"Twin", NewUnset, [](std::string_view text) -> s_bool { return text == "33"; },
                 [](State&, const s_str& name, const s_str&, s_str&) { return NewUnset(name); }});
}

// The first evaluation finds the operators, later ones remember them: each says the same.
TEST(Literals, AnAmbiguousOneHasNoValueHoweverOftenItIsEvaluated) {
  Session session;
  RegisterThirtyThree(session.GetState());
  const std::string kAmbiguous =
      "\tError : Ambiguous constructor : '33'.\n\t        Possible candidates : Scalar, Twin";
  for (int i = 0; i < 3; ++i) {
    for (const char* expression : {"33", "1+33", "1+2+33", "1*2+3+33", "min(1+2+33,7)"}) {
      EXPECT_EQ(session.Type(expression), kAmbiguous + "\n") << expression;
      EXPECT_EQ(session.GetState().Compute(expression).error, kAmbiguous) << expression;
      s_str error;
      EXPECT_FALSE(session.GetState().ParseSymbol("", expression, error, false)) << expression;
      EXPECT_EQ(error.Get(), kAmbiguous) << expression;
    }
    EXPECT_EQ(session.Evaluate("1+2+34"), "Scalar : 37");
  }
}

// A type whose literals, texts of "@", are built from their text: "@" is 1, "@@" is refused with a
// message and "@@@" without.
s_refptr<Symbol> CreateAt(State&, const s_str&, const s_str& text, s_str& error) {
  if (text == "@") return FromNumber(1);
  if (text == "@@") error += "\tError : Two of them";
  return {};
}

TEST(Literals, OneThatIsRefusedHasNoValueHoweverOftenItIsEvaluated) {
  Session session;
  session.GetState().AddType({"At", NewUnset,
                              [](std::string_view text) -> s_bool {
                                return text.find_first_not_of('@') == std::string_view::npos;
                              },
                              CreateAt, "@"});
  for (int i = 0; i < 3; ++i) {
    EXPECT_EQ(session.Evaluate("1+2+@"), "Scalar : 4");
    for (const char* expression : {"@@", "1+@@", "1+2+@@", "min(1+2+@@,7)"}) {
      const Result result = session.GetState().Compute(expression);
      EXPECT_FALSE(result.value) << expression;
      EXPECT_EQ(result.error, "\tError : Two of them") << expression;
    }
    for (const char* expression : {"@@@", "1+@@@", "1+2+@@@", "1+2+@@@+7"}) {
      s_str error;
      EXPECT_FALSE(session.GetState().ParseSymbol("", expression, error, false)) << expression;
      EXPECT_EQ(error.Get(), "") << expression;
    }
  }
}

}  // namespace
}  // namespace Quarn

// Tests of Reference: an expression that is evaluated anew on every use.
#include "types/reference.h"

#include <gtest/gtest.h>

#include <string>

#include "tests/support/session.h"

namespace Quarn {
namespace {

// A reference of a session, "declared full type : text".
std::string Describe(const Symbol& value) {
  return value.GetDeclaredType().Get() + " " + value.GetFullType().Get() + " " +
         value.GetType().Get() + " : " + value.ToString().Get();
}

TEST(Reference, WithoutAnExpressionIsNull) {
  const Reference null(s_str("r"));
  EXPECT_TRUE(null.IsNullReference());
  EXPECT_EQ(null.GetExpression().Get(), "");
  EXPECT_EQ(Describe(null), "Reference Reference Reference : null");  // its name is not shown
  EXPECT_EQ(null.GetKind(), Symbol::Kind::kReference);
}

TEST(Reference, ShowsItsValueUnderItsName) {
  Session session;
  session.Type("x=1");
  EXPECT_EQ(Describe(Reference(session.GetState(), "r", "x + 1")),
            "Reference Reference Scalar : r = 2");
  EXPECT_EQ(Describe(Reference(session.GetState(), "", "x + 1")), "Reference Reference Scalar : 2");
  EXPECT_EQ(Describe(Reference(session.GetState(), "r", "<x, 2>")),
            "Reference Reference Vector : r = <1, 2>");
}

TEST(Reference, ShowsItsExpressionWhenThatFails) {
  Session session;
  for (const char* expression : {"y + 1", " y ", "(1", "1+", "min(1)", "<1, <2>>", " "}) {
    EXPECT_EQ(Describe(Reference(session.GetState(), "r", expression)),
              std::string("Reference Reference Reference : r = ") + expression);
    EXPECT_EQ(Reference(session.GetState(), "", expression).ToString().Get(), expression);
  }
  EXPECT_EQ(session.Type("// silence"), "");
}

TEST(Reference, FollowsWhatItsExpressionNames) {
  Session session;
  session.Type("r&=x + 1");
  EXPECT_EQ(session.Type("?r"), "\tReference : r = x + 1\n");
  session.Type("x=1");
  EXPECT_EQ(session.Type("?r"), "\tScalar : r = 2\n");
  session.Type("x=5");
  EXPECT_EQ(session.Type("?r"), "\tScalar : r = 6\n");
  session.Type("~x");
  EXPECT_EQ(session.Type("?r"), "\tReference : r = x + 1\n");
}

TEST(Reference, ChangesItsTypeWithItsValue) {
  Session session;
  session.Type("r&=x;x=1");
  EXPECT_EQ(session.Type("?r;-r"), "\tScalar : r = 1\n\tScalar : -1\n");
  session.Type("x=<1, 2>");
  EXPECT_EQ(session.Type("?r;-r"), "\tVector : r = <1, 2>\n\tVector : <-1, -2>\n");
  session.Type("x:Symbol");
  EXPECT_EQ(session.Type("?r"), "\tSymbol : r = x\n");
}

TEST(Reference, CloneCopiesTheTextAndEvaluatesNothing) {
  Session session;
  const Reference reference(session.GetState(), "r", "x");
  const s_refptr<Symbol> clone = reference.Clone();
  clone->SetName("");
  EXPECT_EQ(Describe(*clone), "Reference Reference Reference : x");
  session.Type("x=3");
  EXPECT_EQ(Describe(*clone), "Reference Reference Scalar : 3");
  EXPECT_EQ(reference.ToString().Get(), "r = 3");
}

TEST(Reference, ShowsTheTextOfAReferenceThatItLeadsTo) {
  const LinesRow kRows[] = {
      {"s&=zz\nr&=s\n?r",       "\tReference : r = zz\n"  },
      {"s:Reference\nr&=s\n?r", "\tReference : r = null\n"},
      {"s:Reference\nr&=s\nr",  "\tReference : null\n"    },
      {"r=&&1\n?r",             "\tScalar : r = 1\n"      },
      {"r=&\n?r",               "\tReference : null\n"    },
      {"r&=&\n?r",              "\tReference : r = null\n"},
  };
  ExpectOutput(kRows);
}

TEST(Reference, LiteralStripsBlanksAndTheDefinitionDoesNot) {
  Session session;
  const auto expression_of = [&](const char* name) {
    const Symbol& symbol = *session.GetState().GetSymbol(name);
    return static_cast<const Reference&>(symbol).GetExpression().Get();
  };
  session.Type("a=&  x y  ;b&=  x y  ;c=&;d=&\tx\t");
  EXPECT_EQ(expression_of("a"), "x y");
  EXPECT_EQ(expression_of("b"), "  x y  ");
  EXPECT_EQ(expression_of("c"), "");
  EXPECT_EQ(expression_of("d"), "\tx\t");
}

TEST(Reference, LiteralEndsAtTheNextOperator) {
  const LinesRow kRows[] = {
      {"x=1;r=&x+1\nx=5\n?r",   "\tScalar : r = 2\n"}, // (&x)+1, added at once
      {"x=1;r=&(x+1)\nx=5\n?r", "\tScalar : r = 6\n"},
      {"x=1;r&=x+1\nx=5\n?r",   "\tScalar : r = 6\n"},
  };
  ExpectOutput(kRows);
}

TEST(Reference, EveryTextThatBeginsWithAnAmpersandIsALiteral) {
  Session session;
  const TypeRow& type = session.GetState().GetTypes().find(std::string_view("Reference"))->second;
  for (const char* text : {"&", "&a", "& a", "&&", "&("}) {
    EXPECT_TRUE(type.is_literal(text)) << text;
    s_str error = "before";
    const s_refptr<Symbol> value = type.create_from(session.GetState(), "r", text, error);
    EXPECT_EQ(value->GetName().Get(), "r");
    EXPECT_EQ(error.Get(), "before") << text;
  }
  for (const char* text : {"", "a", " &a", "a&"}) EXPECT_FALSE(type.is_literal(text)) << text;
}

TEST(Reference, CreatorMakesANullReference) {
  Session session;
  const TypeRow& type = session.GetState().GetTypes().find(std::string_view("Reference"))->second;
  EXPECT_EQ(Describe(*type.create("r")), "Reference Reference Reference : null");
  EXPECT_EQ(type.create("r")->GetName().Get(), "r");
}

TEST(Reference, ANamedResultKeepsItsNameInside) {
  Session session;
  session.GetState().AddFunction("f", {""},
                                 [](State&, const Values&, Values& results, s_str&) -> s_bool {
                                   results.PushBack(s_refptr<Symbol>(new Symbol("inner")));
                                   return true;
                                 });
  EXPECT_EQ(session.Type("r&=f()"), "\tDefining Reference : r = inner\n");
}

}  // namespace
}  // namespace Quarn

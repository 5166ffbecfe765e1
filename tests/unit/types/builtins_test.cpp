// Tests of what the interpreter asks of the types: registering them, making and resolving
// references.
#include "interpreter/builtins.h"

#include <gtest/gtest.h>

#include <string>

#include "tests/support/foreign_types.h"
#include "tests/support/session.h"
#include "types/reference.h"
#include "types/scalar.h"

namespace Quarn {
namespace {

TEST(Builtins, AreRegisteredWithEveryState) {
  std::ostringstream out;
  std::istringstream in;
  State state(out, in);
  state.ProcessLine("&1+1;<1>");
  EXPECT_EQ(out.str(),
            "\tScalar : 2\n\tError : Unable to parse expression '<1>', no operator found\n");
}

TEST(Builtins, RegisteredAgainTakeTheirPlacesBack) {
  Session session;
  RegisterDigits(session.GetState(), "Scalar");
  RegisterDigits(session.GetState(), "Reference");
  RegisterBuiltins(session.GetState());
  EXPECT_EQ(session.Type("&1+1"), "\tScalar : 2\n");
}

TEST(Builtins, TheTypeOfAReferenceIsTheOneTheyKnow) {
  EXPECT_STREQ(Reference::kType, kReferenceType);
  EXPECT_EQ(Reference(s_str("r")).GetDeclaredType().Get(), kReferenceType);
}

TEST(Builtins, ANewReferenceHasNameAndExpression) {
  Session session;
  const s_refptr<Symbol> reference = NewReference(session.GetState(), "r", " 1+1 ");
  EXPECT_EQ(reference->GetName().Get(), "r");
  EXPECT_EQ(static_cast<const Reference&>(*reference).GetExpression().Get(), " 1+1 ");
  EXPECT_EQ(reference->ToString().Get(), "r = 2");
  EXPECT_EQ(NewReference(session.GetState(), "r", "")->ToString().Get(), "null");
}

TEST(Resolve, LeavesWhatIsNoReferenceAsItIs) {
  Session session;
  std::string log;
  for (const s_refptr<Symbol>& value :
       {s_refptr<Symbol>(new Symbol("a")), s_refptr<Symbol>(new Scalar("x", 1)),
        session.Parse("<1, &1>"), s_refptr<Symbol>(new Probe(log, "a", "Probe"))}) {
    EXPECT_EQ(Resolve(value).Get(), value.Get());
  }
}

TEST(Resolve, GivesTheValueOfAReference) {
  Session session;
  session.Type("x=1;s&=x;r=&s");
  for (const char* expression : {"x", "s", "r", "&r", "&&&1", "0+s"}) {
    const s_refptr<Symbol> value = Resolve(NewReference(session.GetState(), "n", expression));
    EXPECT_EQ(value->GetDeclaredType().Get(), "Scalar") << expression;
    EXPECT_EQ(value->GetName().Get(), "") << expression;
  }
}

TEST(Resolve, GivesNothingForANullReference) {
  Session session;
  EXPECT_TRUE(Resolve(NewReference(session.GetState(), "r", "")).IsNull());
  EXPECT_TRUE(Resolve(s_refptr<Symbol>(new Reference(s_str("r")))).IsNull());
}

TEST(Resolve, GivesANewNullReferenceForOneThatFails) {
  Session session;
  const s_refptr<Symbol> dead = NewReference(session.GetState(), "r", "zz");
  const s_refptr<Symbol> value = Resolve(dead);
  EXPECT_NE(value.Get(), dead.Get());
  EXPECT_TRUE(static_cast<const Reference&>(*value).IsNullReference());
  EXPECT_EQ(value->GetName().Get(), "");
}

TEST(Resolve, KeepsANullReferenceThatIsAValue) {
  Session session;
  session.Type("null:Reference;s&=null");
  for (const char* expression : {"null", "s", "&s", "_"}) {
    if (std::string(expression) == "_") session.GetState().SetLastResult({});
    const s_refptr<Symbol> value = Resolve(NewReference(session.GetState(), "r", expression));
    ASSERT_FALSE(value.IsNull()) << expression;
    EXPECT_TRUE(static_cast<const Reference&>(*value).IsNullReference()) << expression;
  }
}

}  // namespace
}  // namespace Quarn

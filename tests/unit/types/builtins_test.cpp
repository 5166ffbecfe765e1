// Tests of what the interpreter asks of the types: registering them, making references and numbers.
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
  const Reference reference(session.GetState(), "r", " 1+1 ");
  EXPECT_EQ(reference.GetName().Get(), "r");
  EXPECT_EQ(reference.GetExpression().Get(), " 1+1 ");
  EXPECT_EQ(reference.ToString().Get(), "r = 2");
  EXPECT_EQ(Reference(session.GetState(), "r", "").ToString().Get(), "null");
}

TEST(Builtins, ANewNumberHasItsName) {
  EXPECT_EQ(NewNumber("x", 2.5)->ToString().Get(), "x = 2.5");
  EXPECT_EQ(NewNumber("", 2.5)->ToString().Get(), "2.5");
}

}  // namespace
}  // namespace Quarn

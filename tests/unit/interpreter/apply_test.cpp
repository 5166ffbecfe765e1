// Tests of the application of operators to values: finding, resolving, deferring, refusing.
#include <gtest/gtest.h>

#include <functional>
#include <string>

#include "tests/support/foreign_types.h"
#include "tests/support/session.h"
#include "types/lift.h"
#include "types/reference.h"

namespace Quarn {
namespace {

class Apply : public testing::Test {
 protected:
  // The type and text of what comes of it, or the error.
  std::string Binary(std::string_view op, const s_refptr<Symbol>& left,
                     const s_refptr<Symbol>& right) {
    s_str error;
    return Describe(session_.GetState().ApplyBinaryOperator(op, left, right, error), error);
  }
  std::string RightUnary(std::string_view op, const s_refptr<Symbol>& operand) {
    s_str error;
    return Describe(session_.GetState().ApplyRightUnaryOperator(op, operand, error), error);
  }
  std::string LeftUnary(std::string_view op, const s_refptr<Symbol>& operand) {
    s_str error;
    return Describe(session_.GetState().ApplyLeftUnaryOperator(op, operand, error), error);
  }

  s_refptr<Symbol> Number(double value, const char* name = "") {
    return s_refptr<Symbol>(new Scalar(name, value));
  }
  s_refptr<Symbol> Refer(const char* expression, const char* name = "") {
    return s_refptr<Symbol>(new Reference(session_.GetState(), name, expression));
  }

  Session session_;

 private:
  static std::string Describe(const s_refptr<Symbol>& value, const s_str& error) {
    if (!value) return error.Get();
    EXPECT_EQ(error.Get(), "");
    return value->GetType().Get() + " : " + value->ToString().Get();
  }
};

std::string NoMatch(const std::string& types, const std::string& texts) {
  return "\tError : No match for operator '" + types + "' in :\n\t        \t" + texts;
}

TEST_F(Apply, FindsTheImplementationByTheTypesOnBothSides) {
  EXPECT_EQ(Binary("+", Number(1), Number(2)), "Scalar : 3");
  EXPECT_EQ(Binary("*", Number(2), session_.Parse("<1, 2>")), "Vector : <2, 4>");
  EXPECT_EQ(Binary("[]", session_.Parse("<1, 2>"), Number(1)), "Scalar : 2");
  EXPECT_EQ(Binary("[]", session_.Parse("<1, 2>"), Number(1, "i")), "Scalar : 2");
  EXPECT_EQ(RightUnary("-", Number(2)), "Scalar : -2");
  EXPECT_EQ(RightUnary("-", session_.Parse("<1>")), "Vector : <-1>");
}

TEST_F(Apply, RefusesTypesThatHaveNoImplementation) {
  EXPECT_EQ(Binary("/", session_.Parse("<1>"), Number(2)), NoMatch("Vector / Scalar", "<1> / 2"));
  EXPECT_EQ(Binary("/", Number(2), session_.Parse("<1>")), NoMatch("Scalar / Vector", "2 / <1>"));
  EXPECT_EQ(Binary("^", Number(1), Number(2)), NoMatch("Scalar ^ Scalar", "1 ^ 2"));
  EXPECT_EQ(Binary("!", Number(1), Number(2)), NoMatch("Scalar ! Scalar", "1 ! 2"));
  EXPECT_EQ(RightUnary("*", Number(2)), NoMatch("* Scalar", "* 2"));
  EXPECT_EQ(RightUnary("!", session_.Parse("<1>")), NoMatch("! Vector", "! <1>"));
  EXPECT_EQ(LeftUnary("!", Number(4)), NoMatch("Scalar !", "4 !"));
}

TEST_F(Apply, RefusesTextsThatAreNoOperators) {
  for (const char* op : {"?", "", "++", "a", "["}) {
    const std::string text = op;
    EXPECT_EQ(Binary(op, Number(1), Number(2)),
              NoMatch("Scalar " + text + " Scalar", "1 " + text + " 2"));
    EXPECT_EQ(RightUnary(op, Number(1)), NoMatch(text + " Scalar", text + " 1"));
    EXPECT_EQ(LeftUnary(op, Number(1)), NoMatch("Scalar " + text, "1 " + text));
  }
}

TEST_F(Apply, ATypeFromOutsideHasItsOperators) {
  Word::Register(session_.GetState());
  EXPECT_EQ(session_.Evaluate("'ab!"), "Word : abab");
  EXPECT_EQ(session_.Evaluate("'a+'b!"), "Word : abb");
  const NoMatchRow kRows[] = {
      {"!'ab",  "! Word",        "! ab"  },
      {"4!",    "Scalar !",      "4 !"   }, // now there is such an operator, for words
      {"'ab-",  "Word -",        "ab -"  },
      {"'ab+1", "Word + Scalar", "ab + 1"},
      {"1+'ab", "Scalar + Word", "1 + ab"},
      {"'a*'b", "Word * Word",   "a * b" },
  };
  ExpectNoMatches(session_, kRows);
}

TEST_F(Apply, IsTheSameWithinAnEvaluation) {
  Word::Register(session_.GetState());
  const s_refptr<Symbol> word = session_.Parse("'ab");
  std::string within;
  const auto apply = [&] {
    within = Binary("+", Number(1), Number(2)) + "; " + Binary("?", Number(1), Number(2)) + "; " +
             RightUnary("-", Number(2)) + "; " + RightUnary("?", Number(2)) + "; " +
             LeftUnary("!", word) + "; " + LeftUnary("?", word) + "; " + LeftUnary("!", Number(2));
    return within;
  };
  session_.GetState().AddFunction("apply", {""},
                                  [&](State&, const Values&, Values& results, s_str&) -> s_bool {
                                    apply();
                                    results.PushBack(Number(0));
                                    return true;
                                  });
  EXPECT_EQ(session_.Evaluate("apply()"), "Scalar : 0");
  EXPECT_EQ(within, "Scalar : 3; " + NoMatch("Scalar ? Scalar", "1 ? 2") + "; Scalar : -2; " +
                        NoMatch("? Scalar", "? 2") + "; Word : abab; " + NoMatch("Word ?", "ab ?") +
                        "; " + NoMatch("Scalar !", "2 !"));
  EXPECT_EQ(apply(), within);
}

TEST_F(Apply, ANewRegistrationTakesThePlaceOfTheOld) {
  EXPECT_EQ(Binary("+", Number(1), Number(2)), "Scalar : 3");
  session_.GetState().AddBinary({
      {"Scalar", "+", "Scalar", Quarn::Binary(std::multiplies<double>())}
  });
  session_.GetState().AddRightUnary({
      {"-", "Scalar", Copy}
  });
  EXPECT_EQ(Binary("+", Number(4), Number(2)), "Scalar : 8");
  EXPECT_EQ(session_.Evaluate("4+2"), "Scalar : 8");
  EXPECT_EQ(session_.Evaluate("-4"), "Scalar : 4");
}

TEST_F(Apply, ANewRegistrationIsFoundWhereTheOldOneWorkedOnPlainNumbers) {
  EXPECT_EQ(session_.Evaluate("4+2+1"), "Scalar : 7");
  session_.GetState().AddBinary({
      {"Scalar", "+", "Scalar",
       [](s_refptr<Symbol>, s_refptr<Symbol> right, s_str&) { return right; }}
  });
  EXPECT_EQ(session_.Evaluate("4+2+1"), "Scalar : 1");
}

TEST_F(Apply, WhatAnOperatorKeepsStaysAsItWas) {
  static s_refptr<Symbol> kept;
  session_.GetState().AddBinary({
      {"Scalar", "^", "Scalar",
       [](s_refptr<Symbol> left, s_refptr<Symbol> right, s_str&) {
         kept = right;
         return left;
       }},
  });
  for (int i = 0; i < 2; ++i) {
    EXPECT_EQ(session_.Evaluate("1^2+3-4*5"), "Scalar : -16");
    EXPECT_EQ(kept->ToString().Get(), "2");
  }
  kept = {};
}

TEST_F(Apply, AnOperatorMayGiveBackItsOperand) {
  session_.GetState().AddBinary({
      {"Vector", "+", "Vector",
       [](s_refptr<Symbol>, s_refptr<Symbol> right, s_str&) { return right; }}
  });
  for (int i = 0; i < 2; ++i) {
    EXPECT_EQ(session_.Evaluate("<1>+<2>"), "Vector : <2>");
    EXPECT_EQ(session_.Evaluate("<1>+<2>+3"), NoMatch("Vector + Scalar", "<2> + 3"));
    EXPECT_EQ(session_.Evaluate("3*(<1>+<2>)"), "Vector : <6>");
  }
}

TEST_F(Apply, WhatIsRegisteredLaterIsFoundToo) {
  EXPECT_EQ(session_.Evaluate("2^3"), NoMatch("Scalar ^ Scalar", "2 ^ 3"));
  session_.GetState().AddBinary({
      {"Scalar", "^", "Scalar", Quarn::Binary(std::plus<double>())}
  });
  EXPECT_EQ(session_.Evaluate("2^3"), "Scalar : 5");
}

TEST_F(Apply, FailsWithTheMessageOfTheImplementation) {
  session_.GetState().AddBinary({
      {"Scalar", "^", "Scalar", [](s_refptr<Symbol>, s_refptr<Symbol>, s_str& error) {
         error += "\tError : Not today";
         return s_refptr<Symbol>();
       }}
  });
  EXPECT_EQ(Binary("^", Number(1), Number(2)), "\tError : Not today");
  EXPECT_EQ(session_.Evaluate("1+2^3+zz"), "\tError : Not today");
}

TEST_F(Apply, AReferenceStandsForItsValue) {
  session_.Type("x=4;r&=x;s&=r");
  EXPECT_EQ(Binary("+", Refer("x+1"), Number(2)), "Scalar : 7");
  EXPECT_EQ(Binary("+", Number(2), Refer("x+1")), "Scalar : 7");
  EXPECT_EQ(Binary("*", Refer("s"), Refer("&s")), "Scalar : 16");  // through further references
  EXPECT_EQ(RightUnary("!", Refer("s")), "Scalar : 24");
  session_.Type("x=<1, 2>");
  EXPECT_EQ(Binary("+", Refer("s"), Refer("s")), "Vector : <2, 4>");
}

// What is known of a reference is taken at once only by what works on numbers.
TEST_F(Apply, AReferenceWhoseValueIsKnownStandsForIt) {
  session_.Type("x=1;r&=x+1;r;v=<1, 2>");
  EXPECT_EQ(session_.Type("s&=v*r"), "\tDefining Reference : s = <2, 4>\n");
  EXPECT_EQ(session_.Type("t&=3*r"), "\tDefining Reference : t = 6\n");
  EXPECT_EQ(session_.Evaluate("r^2"), NoMatch("Scalar ^ Scalar", "2 ^ 2"));
  EXPECT_EQ(session_.Evaluate("r*2"), "Scalar : 4");
}

TEST_F(Apply, IsDeferredWhileAReferenceHasNoValue) {
  EXPECT_EQ(Binary("+", Refer("zz"), Number(1)), "Reference : (zz)+(1)");
  EXPECT_EQ(Binary("+", Number(1), Refer("zz")), "Reference : (1)+(zz)");
  EXPECT_EQ(Binary("-", Refer("yy"), Refer("zz")), "Reference : (yy)-(zz)");
  EXPECT_EQ(Binary("*", session_.Parse("<1, 2>"), Refer("zz")), "Reference : (<1, 2>)*(zz)");
}

TEST_F(Apply, TakesUpADeferredOperationWhenItsValueIsThere) {
  session_.Type("dead&=zz;d=dead*2");
  EXPECT_EQ(session_.Type("?d"), "\tReference : d = (zz)*(2)\n");
  session_.Type("zz=4");
  EXPECT_EQ(session_.Type("?d"), "\tScalar : d = 8\n");
  EXPECT_EQ(session_.Type("d+1"), "\tScalar : 9\n");
}

TEST_F(Apply, AReferenceToANullReferenceIsDeferredAsWell) {
  session_.Type("null:Reference;r&=null");
  EXPECT_EQ(session_.Evaluate("r+1"), "Reference : (null)+(1)");
  EXPECT_EQ(session_.Evaluate("1+r"), "Reference : (1)+(null)");
}

TEST_F(Apply, ANullReferenceIsNoOperand) {
  Session session;
  const NoMatchRow kRows[] = {
      {"_+1",    "Reference + Scalar",    "null + 1"   },
      {"1+_",    "Scalar + Reference",    "1 + null"   },
      {"_+_",    "Reference + Reference", "null + null"},
      {"-_",     "- Reference",           "- null"     },
      {"_!",     "Reference !",           "null !"     },
      {"_*<1>",  "Reference * Vector",    "null * <1>" },
      {"<1>[_]", "Vector [] Reference",   "<1> [] null"},
  };
  ExpectNoMatches(session, kRows);
}

TEST_F(Apply, OneOperandIsNeverDeferred) {
  EXPECT_EQ(RightUnary("-", Refer("zz")), NoMatch("- Reference", "- zz"));
  EXPECT_EQ(LeftUnary("!", Refer("zz")), NoMatch("Reference !", "zz !"));
}

TEST_F(Apply, WithoutAnImplementationForTheLeftTheRightIsNotResolved) {
  EXPECT_EQ(Binary("^", Number(1), Refer("zz")), NoMatch("Scalar ^ Reference", "1 ^ zz"));
  EXPECT_EQ(Binary("?", Refer("zz"), Number(1)), NoMatch("Reference ? Scalar", "zz ? 1"));
}

TEST_F(Apply, DescribesOperandsAsTheyWerePassedIn) {
  session_.Type("a;r&=a;x=2");
  EXPECT_EQ(Binary("+", Refer("a"), Refer("x+1")), NoMatch("Symbol + Scalar", "a + 3"));
  EXPECT_EQ(RightUnary("-", Refer("r")), NoMatch("- Symbol", "- a"));
}

TEST_F(Apply, AnOperandWithANameHasNoText) {
  EXPECT_EQ(Binary("^", Number(1, "x"), Number(2)), NoMatch("Scalar ^ Scalar", " ^ 2"));
  EXPECT_EQ(Binary("^", Number(1), Number(2, "y")), NoMatch("Scalar ^ Scalar", "1 ^ "));
  EXPECT_EQ(RightUnary("*", Number(1, "x")), NoMatch("* Scalar", "* "));
  EXPECT_EQ(LeftUnary("*", Number(1, "x")), NoMatch("Scalar *", " *"));
  EXPECT_EQ(Binary("+", Refer("zz", "r"), Number(1)), "Reference : ()+(1)");
}

TEST_F(Apply, AnOperandsTypeMustMatchExactly) {
  std::string log;
  const s_refptr<Symbol> probe(new Probe(log, "a", "scalar"));
  EXPECT_EQ(Binary("+", probe, Number(1)), NoMatch("scalar + Scalar", "a + 1"));
}

TEST_F(Apply, TypesWithoutAFixedNameAreFoundEveryTime) {
  Word::Register(session_.GetState());
  for (int i = 0; i < 3; ++i) {
    EXPECT_EQ(session_.Evaluate("'a+'b"), "Word : ab");
    EXPECT_EQ(session_.Evaluate("1+2"), "Scalar : 3");
  }
}

TEST_F(Apply, AnOperatorBesideAReferenceThatLeadsBackToItselfSaysSo) {
  Word::Register(session_.GetState());
  session_.Type("right&=-right;left&=left!");
  const ValueRow kRows[] = {
      {"-right", "\tError : Reference '-right' leads back to itself"},
      {"left!",  "\tError : Reference 'left!' leads back to itself" },
  };
  ExpectValues(session_, kRows);
}

TEST_F(Apply, NeverChangesItsOperands) {
  const s_refptr<Symbol> left = session_.Parse("<1, 2>");
  const s_refptr<Symbol> right = Refer("left");
  session_.Type("left=<3, 4>");
  Binary("+", left, right);
  RightUnary("-", left);
  EXPECT_EQ(left->ToString().Get(), "<1, 2>");
  EXPECT_EQ(static_cast<const Reference&>(*right).GetExpression().Get(), "left");
}

TEST_F(Apply, AddsItsMessageOnALineOfItsOwn) {
  s_str error = "\tError : before";
  EXPECT_FALSE(session_.GetState().ApplyBinaryOperator("^", Number(1), Number(2), error));
  EXPECT_EQ(error.Get(), "\tError : before\n" + NoMatch("Scalar ^ Scalar", "1 ^ 2"));
}

}  // namespace
}  // namespace Quarn

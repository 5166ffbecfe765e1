// Tests of references that are evaluated while something changes, leads back, or is asked for from
// within: the value is right, and it is kept only if it will be right the next time too.
#include <gtest/gtest.h>

#include <string>

#include "interpreter/core.h"
#include "tests/support/foreign_types.h"
#include "tests/support/session.h"
#include "types/lift.h"
#include "types/value.h"

namespace Quarn {
namespace {

class UnderWay : public testing::Test {
 protected:
  UnderWay() {
    // seen(x) and drawn(x) give x back and are counted; the first is pure.
    const auto count = [this](State&, const Values& arguments, s_str&) {
      ++calls_;
      return arguments[0U]->Clone();
    };
    AddFunction("seen", "Scalar", Purity::kPure, count);
    AddFunction("drawn", "Scalar", Purity::kImpure, count);
    // change(n) makes x the number n, which it gives back.
    AddFunction("change", "Scalar", Purity::kPure,
                [](State& state, const Values& arguments, s_str&) {
                  state.SetSymbol("x", arguments[0U]);
                  return arguments[0U]->Clone();
                });
  }

  // A function of one argument, or of "" none, that fails when it gives null.
  template <class F>
  void AddFunction(const char* name, const char* argument, Purity purity, F f) {
    session_.GetState().AddFunctions({
        {name,
         {argument},
         [f](State& state, const Values& arguments, Values& results, s_str& error) -> s_bool {
           results.PushBack(f(state, arguments, error));
           return static_cast<bool>(*results.begin());
         }, {},
         purity}
    });
  }

  // What f makes of the operand, counted.
  UnaryOperator Counted(s_refptr<Symbol> (*f)(const s_refptr<Symbol>&)) {
    return [this, f](const s_refptr<Symbol>& operand, s_str&) {
      ++calls_;
      return f(operand);
    };
  }

  int CallsOf(const std::string& line) {
    calls_ = 0;
    session_.Type(line);
    return calls_;
  }
  // That the line makes so many calls each time, since what it needs is not kept.
  void ExpectCallsEachTime(const std::string& line, int calls) {
    for (int i = 0; i < 3; ++i) EXPECT_EQ(CallsOf(line), calls) << line;
  }

  Session session_;
  int calls_ = 0;
};

std::string LeadsBack(const std::string& expression) {
  return "\tError : Reference '" + expression + "' leads back to itself\n";
}

s_refptr<Symbol> Same(const s_refptr<Symbol>& operand) { return operand; }

// ---- What changes ----

TEST_F(UnderWay, WhatChangesAfterItWasReadIsReadAgainTheNextTime) {
  session_.Type("x=1");
  EXPECT_EQ(session_.Type("r&=x+change(5)+seen(0)"), "\tDefining Reference : r = 6\n");
  EXPECT_EQ(session_.Type("r+0"), "\tScalar : 10\n");
  ExpectCallsEachTime("r+0", 1);
  session_.Type("s&=r*10");
  EXPECT_EQ(session_.Type("s+0"), "\tScalar : 100\n");
  ExpectCallsEachTime("s+0", 1);
}

TEST_F(UnderWay, WhatChangesBeforeItIsReadIsKept) {
  session_.Type("x=1;r&=change(5)+x+seen(0)");
  EXPECT_EQ(session_.Type("r+0"), "\tScalar : 10\n");
  EXPECT_EQ(CallsOf("r+0;r;?r"), 0);
}

// ---- What is impure ----

TEST_F(UnderWay, OperatorsAndLiteralsThatAreImpureAreAskedEachTime) {
  State& state = session_.GetState();
  BinaryRow power{"Scalar", "^", "Scalar",
                  [this](const s_refptr<Symbol>& left, const s_refptr<Symbol>&, s_str&) {
                    ++calls_;
                    return left;
                  }};
  power.purity = Purity::kImpure;
  state.AddBinary({power});
  state.AddLeftUnary({
      {"!", "Scalar", Counted(Same), nullptr, Purity::kImpure}
  });
  static int* literals = &calls_;
  literals = &calls_;
  TypeRow drawn{"Drawn", [](const s_str&) { return FromNumber(0); },
                [](std::string_view text) -> s_bool { return text == "#"; },
                [](State&, const s_str&, const s_str&, s_str&) {
                  ++*literals;
                  return FromNumber(7);
                }};
  drawn.purity = Purity::kImpure;
  state.AddType(drawn);
  session_.Type("x=3;a&=x^2;b&=x!;c&=#");
  for (const char* line : {"a+0", "b+0", "c+0"}) ExpectCallsEachTime(line, 1);
  EXPECT_EQ(session_.Type("a+0;b+0;c+0"), "\tScalar : 3\n\tScalar : 3\n\tScalar : 7\n");
}

// A function on plain numbers would not be told apart from one that is pure.
TEST_F(UnderWay, OperatorsThatAreImpureAreAskedForElementsToo) {
  static int* calls = &calls_;
  calls = &calls_;
  const auto add = [](double a, double b) {
    ++*calls;
    return a + b;
  };
  const auto negate = [](double a) {
    ++*calls;
    return -a;
  };
  BinaryRow sum = OnScalars("+", add);
  UnaryRow minus = UnaryOnScalars("-", negate);
  sum.purity = minus.purity = Purity::kImpure;
  session_.GetState().AddBinary({sum});
  session_.GetState().AddRightUnary({minus});
  session_.Type("r&=<1, 2>+<3, 4>;s&=-<1, 2>;t&=1+2;u&=-1");
  ExpectCallsEachTime("r[0]", 2);
  ExpectCallsEachTime("s[1]", 2);
  ExpectCallsEachTime("t*2", 1);
  ExpectCallsEachTime("u*2", 1);
  EXPECT_EQ(session_.Type("r[1];s[1];t*2;u*2"),
            "\tScalar : 6\n\tScalar : -2\n\tScalar : 6\n\tScalar : -2\n");
}

// ---- Rings ----

TEST_F(UnderWay, ARingThroughWhatIsImpureOrChangesIsWalkedEachTime) {
  const char* const kRings[] = {
      "a&=drawn(1)+b;b&=a",
      "x=1;a&=x+change(3)+seen(0)+b;b&=a",
      "b&=c+1;c&=b+1;a&=drawn(1)+b",  // only leads to a ring
      "x=1;b&=c+1;c&=b+1;a&=x+change(3)+seen(0)+b",
  };
  const char* const kMetTwice[] = {"drawn(1)+b", "x+change(3)+seen(0)+b", "c+1", "c+1"};
  for (int i = 0; i < 4; ++i) {
    session_.Type(kRings[i]);
    ExpectCallsEachTime("a+0", 1);
    EXPECT_EQ(session_.Type("a+0"), LeadsBack(kMetTwice[i])) << kRings[i];
  }
}

TEST_F(UnderWay, ARingThatIsKnownIsForgottenWhereItsReferenceGoes) {
  session_.Type("a&=b+1;b&=a+1;s&=a*2;t&=s+seen(1)");
  EXPECT_EQ(session_.Type("t+0"), LeadsBack("b+1"));
  EXPECT_EQ(session_.Type("t+0"), LeadsBack("b+1"));
  session_.Type("~s");
  EXPECT_EQ(session_.Type("t"), "\tReference : s+seen(1)\n");
  session_.Type("s=4");
  EXPECT_EQ(session_.Type("t"), "\tScalar : 5\n");
}

TEST_F(UnderWay, ARingThroughAnEvaluationInAFunctionIsOne) {
  AddFunction("again", "", Purity::kPure, [](State& state, const Values&, s_str& error) {
    const Result result = state.Compute("a+0");
    if (!result) error = result.error;
    return result.value;
  });
  session_.Type("a&=again()+1");
  for (int i = 0; i < 2; ++i) EXPECT_EQ(session_.Type("a+0"), LeadsBack("again()+1"));
  session_.Type("a=4");
  EXPECT_EQ(session_.Type("again()"), "\tScalar : 4\n");
}

// Whoever asks for a type is told that there is no value, and goes on.
TEST_F(UnderWay, AReferenceThatAFunctionAsksForIsNoneWhileItIsUnderWay) {
  AddFunction("peek", "", Purity::kPure, [this](State& state, const Values&, s_str&) {
    ++calls_;
    return FromNumber(state.GetSymbol("asked")->GetType() == "Reference" ? 1 : 2);
  });
  for (const char* asked : {"asked&=a", "asked&=peek()+1"}) {
    session_.Type(asked);
    session_.Type("a&=peek()+1");
    EXPECT_EQ(session_.Type("a+0"), "\tScalar : 2\n") << asked;
    ExpectCallsEachTime("a+0", 1);
  }
  session_.Type("asked&=5");
  EXPECT_EQ(session_.Type("a+0"), "\tScalar : 3\n");
  EXPECT_EQ(CallsOf("a+0"), 0);
}

// ---- Names on the way ----

TEST_F(UnderWay, ReferencesWithNamesOnTheWayAreShown) {
  for (const char* name : {"q", "s"}) {
    AddFunction(name == std::string("q") ? "getq" : "gets", "", Purity::kImpure,
                [name](State& state, const Values&, s_str&) { return state.GetSymbol(name); });
  }
  session_.Type("s&=x+1;q&=gets();p&=getq()");
  EXPECT_EQ(session_.Type("?q;?p"), "\tReference : q = s = x+1\n\tReference : p = q = s = x+1\n");
  session_.Type("x=4");
  EXPECT_EQ(session_.Type("?q;?p;p+1"),
            "\tScalar : q = s = 5\n\tScalar : p = q = s = 5\n\tScalar : 6\n");
}

TEST_F(UnderWay, OfReferencesOnTheWayTheLastOneIsShownThatFails) {
  session_.Type("a&=b;b&=c;c&=zz+1");
  EXPECT_EQ(session_.Type("?a;?b;?c"),
            "\tReference : a = zz+1\n\tReference : b = zz+1\n\tReference : c = zz+1\n");
  session_.Type("zz=1");
  EXPECT_EQ(session_.Type("?a"), "\tScalar : a = 2\n");
}

// ---- What is gone at once ----

// Both arguments are deferred operations, which read the same and are gone one after the other.
TEST_F(UnderWay, WhatIsGoneLeavesWhatItReadOnce) {
  session_.Type("t&=y+1;s&=y;u&=max(s*2, s*3)");
  EXPECT_EQ(session_.Type("t;u"), "\tReference : y+1\n\tReference : max(s*2, s*3)\n");
  session_.Type("y=1");
  EXPECT_EQ(session_.Type("t;u"), "\tScalar : 2\n\tScalar : 3\n");
}

// "((y+y))+(zz)" is deferred, and so is what is made of it: only the first of them has read y.
TEST_F(UnderWay, WhatIsGoneLeavesWhatNobodyElseRead) {
  Word::Register(session_.GetState());
  session_.Type("s&=zz;u&='(y+y)+s+'k");
  EXPECT_EQ(session_.Type("u"), "\tReference : (((y+y))+(zz))+(k)\n");
  session_.Type("y&=u+'l");
  EXPECT_EQ(session_.Type("u+'m"), LeadsBack("'(y+y)+s+'k"));
  session_.Type("zz='z");
  EXPECT_EQ(session_.Type("u"), "\tWord : (y+y)zk\n");
}

TEST_F(UnderWay, PartsOfOneTextAreReadByTheirBrackets) {
  session_.Type("x=1;y=<2, 3>");
  EXPECT_EQ(session_.Type("r&=&(x+1)*&(y[1])"), "\tDefining Reference : r = 6\n");
  session_.Type("y=<4, 5>");
  EXPECT_EQ(session_.Type("r"), "\tScalar : 10\n");
}

// ---- Nothing kept ----

TEST_F(UnderWay, WithoutKeepingAnythingAllIsTheSame) {
  session_.GetState().GetCore().machine.KeepNothing();
  session_.Type("x=1;r&=seen(x)+1;s&=r;a&=b+1;b&=a+1");
  ExpectCallsEachTime("r+0", 1);
  ExpectCallsEachTime("s+s", 2);
  EXPECT_EQ(session_.Type("s;x=5;s+0"), "\tScalar : 2\n\tDefining Scalar : x = 5\n\tScalar : 6\n");
  for (int i = 0; i < 2; ++i) EXPECT_EQ(session_.Type("a+0"), LeadsBack("b+1"));
}

}  // namespace
}  // namespace Quarn

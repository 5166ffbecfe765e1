// Tests of what references keep: a value is used again until something that it read changes, and
// nobody can tell but by what is called.
#include "interpreter/cell.h"

#include <gtest/gtest.h>

#include <string>

#include "interpreter/core.h"
#include "tests/support/session.h"
#include "types/lift.h"
#include "types/value.h"

namespace Quarn {
namespace {

// seen(x) and drawn(x) give x back and are counted; the first is pure.
class KeptValues : public testing::Test {
 protected:
  KeptValues() {
    session_.GetState().AddFunctions({
        {"seen",  {"Scalar"}, Count(), {}, Purity::kPure  },
        {"drawn", {"Scalar"}, Count(), {}, Purity::kImpure},
    });
  }

  // How many calls it takes to carry out a line.
  int CallsOf(const std::string& line) {
    calls_ = 0;
    session_.Type(line);
    return calls_;
  }

  Session session_;

 private:
  Function Count() {
    return [this](State&, const Values& arguments, Values& results, s_str&) -> s_bool {
      ++calls_;
      results.PushBack(arguments[0U]->Clone());
      return true;
    };
  }

  int calls_ = 0;
};

TEST_F(KeptValues, AreEvaluatedOnceHoweverOftenTheyAreUsed) {
  session_.Type("x=1");
  EXPECT_EQ(CallsOf("r&=seen(x)+1"), 1);
  EXPECT_EQ(CallsOf("r;?r;r+r*r;min(r,r);<1,r,r>;s&=r+r;t=r;t+s"), 0);
  EXPECT_EQ(session_.Type("r+t+s"), "\tScalar : 8\n");
}

TEST_F(KeptValues, AreEvaluatedAgainAfterAChange) {
  session_.Type("x=1;r&=seen(x)+1;s&=r*10");
  const struct {
    const char* change;
    const char* shown;
  } kRows[] = {
      {"x=2",      "\tScalar : 30\n"                 },
      {"x=&y",     "\tReference : (seen(x)+1)*(10)\n"},
      {"y=4",      "\tScalar : 50\n"                 }, // which was missing when it was asked for
      {"x:Scalar", "\tScalar : nan\n"                },
      {"~x",       "\tReference : (seen(x)+1)*(10)\n"},
      {"x=5",      "\tScalar : 60\n"                 },
      {"r&=7",     "\tScalar : 70\n"                 },
      {"r=8",      "\tScalar : 80\n"                 },
  };
  for (const auto& row : kRows) {
    session_.Type(row.change);
    EXPECT_EQ(session_.Type("s"), row.shown) << row.change;
    EXPECT_EQ(CallsOf("s;s;s"), 0) << row.change;
  }
}

TEST_F(KeptValues, FollowAHost) {
  State& state = session_.GetState();
  session_.Type("r&=seen(x)+1");
  for (double x : {1.0, 2.0}) {
    state.SetSymbol("x", FromNumber(x));
    EXPECT_EQ(ToNumber(state.GetSymbol("r")), x + 1);
  }
  state.EraseSymbol("x");
  EXPECT_FALSE(ToNumber(state.GetSymbol("r")));
}

TEST_F(KeptValues, FollowTheLastResult) {
  session_.Type("r&=_+1;5");
  EXPECT_EQ(session_.Type("r+0"), "\tScalar : 6\n");
  EXPECT_EQ(session_.Type("r+0"), "\tScalar : 7\n");
  EXPECT_EQ(session_.Type("r+0;r+0"), "\tScalar : 8\n\tScalar : 9\n");
}

TEST_F(KeptValues, AreNoneWhereAnImpureFunctionIsCalled) {
  session_.Type("x=1");
  EXPECT_EQ(CallsOf("r&=drawn(x)+1"), 1);
  EXPECT_EQ(CallsOf("s&=r+seen(x)"), 2);
  EXPECT_EQ(CallsOf("s"), 4);  // once for the type and once for the text
  EXPECT_EQ(CallsOf("s+s"), 4);
  EXPECT_EQ(CallsOf("<1,s>"), 4);
}

TEST_F(KeptValues, AreKeptForFailuresToo) {
  session_.Type("r&=seen(1)+zz");
  EXPECT_EQ(CallsOf("r;-r;?r;s&=r;s"), 0);
  EXPECT_EQ(CallsOf("zz=1;r"), 1);
}

TEST_F(KeptValues, ChainsAndDoublingCostTheirLength) {
  session_.Type("a0&=seen(1)");
  for (int i = 1; i <= 60; ++i) {
    const std::string before = "a" + std::to_string(i - 1);
    session_.Type("a" + std::to_string(i) + "&=" + before + "+" + before);
  }
  EXPECT_EQ(session_.Type("a60"), "\tScalar : 1.15292150460685e+18\n");
  EXPECT_EQ(CallsOf("a60;a59+a60"), 0);
}

// What an operation is deferred to is gone as soon as it has failed.
TEST_F(KeptValues, AreKeptWhereAnOperationIsDeferred) {
  session_.Type("x=2;s&=y");
  EXPECT_EQ(CallsOf("u&=s*seen(x)+s"), 1);
  EXPECT_EQ(CallsOf("u;u+1;?u;t&=u+u;t"), 0);
  EXPECT_EQ(CallsOf("x=3;u;t"), 1);
  EXPECT_EQ(CallsOf("y=5;u"), 1);
  EXPECT_EQ(session_.Type("u"), "\tScalar : 20\n");
}

// What was read by something that is gone was itself read from something that is gone.
TEST_F(KeptValues, OutliveSeveralThatAreGone) {
  session_.Type("v=<>;r7&=<&-.5e1,r2>;r4&=min(z)");
  session_.Type("r0&=a*2;r1&=-;r2&=-r1/3;&=-r2/3;a=r7;~r4;&=<v,r0>");
  EXPECT_EQ(session_.Type("r0"), "\tReference : (<&-.5e1,r2>)*(2)\n");
}

TEST_F(KeptValues, OfARingNameTheReferenceThatIsMetTwice) {
  session_.Type("r0&=0*r1+r2;r1&=y;r2=&r0[2]");
  EXPECT_EQ(session_.Type("a=r2"), "\tError : Reference 'r0[2]' leads back to itself\n");
  EXPECT_EQ(session_.Type("a=r2"), "\tError : Reference 'r0[2]' leads back to itself\n");
}

TEST_F(KeptValues, OfARingAreForgottenWithIt) {
  session_.Type("a&=b+seen(1);b&=a+1;b");
  EXPECT_EQ(session_.Type("b;a"), "\tReference : a+1\n\tReference : b+seen(1)\n");
  session_.Type("b=2");
  EXPECT_EQ(session_.Type("a"), "\tScalar : 3\n");
}

TEST_F(KeptValues, AreReadAnewAfterARegistration) {
  session_.Type("r&=f(1)");
  EXPECT_EQ(session_.Type("r"), "\tReference : f(1)\n");
  session_.GetState().AddFunction("f", {"Scalar"},
                                  [](State&, const Values&, Values& results, s_str&) -> s_bool {
                                    results.PushBack(FromNumber(7));
                                    return true;
                                  });
  EXPECT_EQ(session_.Type("r"), "\tScalar : 7\n");
  EXPECT_EQ(session_.Type("r+1"), "\tScalar : 8\n");
  session_.Type("s&=max(2, 3);s+1");
  session_.GetState().AddFunction("f", {"Scalar"},
                                  [](State&, const Values&, Values& results, s_str&) -> s_bool {
                                    results.PushBack(FromNumber(9));
                                    return true;
                                  });
  EXPECT_EQ(session_.Type("s+1"), "\tScalar : 4\n");
  EXPECT_EQ(session_.Type("r+1"), "\tScalar : 10\n");
}

TEST_F(KeptValues, OfASharedTextAreShared) {
  session_.Type("x=1");
  EXPECT_EQ(CallsOf("r&=seen(x);s&=seen(x);t=&seen(x)"), 1);
}

TEST_F(KeptValues, LeaveNothingBehindWhenReferencesGo) {
  for (int i = 0; i < 3; ++i) {
    session_.Type("r&=missing+x;s&=r+r;v=<1,&1>;x=v;x");
    session_.Type("~r;~s;~v;~x");
  }
  EXPECT_EQ(session_.GetState().GetSymbolNames().GetSize().Get(), 1U);
}

TEST(References, MayOutliveTheirState) {
  s_refptr<Symbol> reference;
  {
    Session session;
    session.Type("x=1;r&=x+1;r");
    reference = session.GetState().GetSymbol("r");
  }
  EXPECT_EQ(reference->ToString().Get(), "r = x+1");
  EXPECT_EQ(reference->GetType().Get(), "Reference");
  EXPECT_EQ(reference->Clone()->ToString().Get(), "r = x+1");
  EXPECT_EQ(ToNumber(reference), std::nullopt);
}

// ---- Where failures are ----

TEST(Places, AreThoseOfTheMistakeOrOfTheName) {
  const struct {
    const char* expression;
    Place place;
  } kRows[] = {
      {"1+zzz*2",       {2, 3}},
      {"1+(2",          {2, 1}},
      {"1+2)",          {3, 1}},
      {"min(1, no(2))", {7, 2}},
      {"v[]",           {1, 2}},
      {"<1>+2",         {3, 1}},
      {"1 2",           {0, 3}},
      {"2*( )",         {3, 1}},
      {"max(1)",        {0, 3}},
      {"<1>[zz]",       {4, 2}},
      {"1+<2, yy>",     {6, 2}},
      {"[]",            {0, 2}},
  };
  Session session;
  for (const auto& row : kRows) {
    const Result result = session.GetState().Compute(row.expression);
    EXPECT_FALSE(result) << row.expression;
    EXPECT_EQ(result.place.position, row.place.position) << row.expression;
    EXPECT_EQ(result.place.length, row.place.length) << row.expression;
  }
  EXPECT_EQ(session.GetState().Compute("1+1").place, Place());
}

}  // namespace
}  // namespace Quarn

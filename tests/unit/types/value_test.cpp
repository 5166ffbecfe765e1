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

TEST(Value, ATypeFromOutsideThatBorrowsANameIsNotTakenForAScalar) {
  std::string log;
  EXPECT_FALSE(ToNumber(s_refptr<Symbol>(new Probe(log, "p", "Scalar"))));
}

}  // namespace
}  // namespace Quarn

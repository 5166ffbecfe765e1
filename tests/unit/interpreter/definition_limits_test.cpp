// Tests of definitions whose new value takes too much to be shown: the name keeps what it had.
#include <gtest/gtest.h>

#include <string>

#include "interpreter/limits.h"
#include "tests/support/session.h"

namespace Quarn {
namespace {

constexpr char kTooLong[] = "\tError : Output is too long\n";
constexpr char kTooManySteps[] = "\tError : Evaluation takes too many steps\n";

class DefinitionLimits : public ::testing::Test {
 protected:
  DefinitionLimits() {
    session_.Type("v=<1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16, 17, 18, 19, 20>");
  }
  void Limit(const Limits& limits) { session_.GetState().SetLimits(limits); }

  Session session_;
};

TEST_F(DefinitionLimits, ANumberIsKept) {
  session_.Type("x=5");
  Limit({.output = 40});
  EXPECT_EQ(session_.Type("x&=v"), kTooLong);
  EXPECT_EQ(session_.Type("x"), "\tScalar : 5\n");
}

TEST_F(DefinitionLimits, AReferenceIsKept) {
  session_.Type("x=5;r&=x+1");
  Limit({.output = 40});
  EXPECT_EQ(session_.Type("r&=v"), kTooLong);
  EXPECT_EQ(session_.Type("r=v"), kTooLong);
  EXPECT_EQ(session_.Type("x=6;r+0"), "\tDefining Scalar : x = 6\n\tScalar : 7\n");
}

TEST_F(DefinitionLimits, ANewNameStaysNew) {
  Limit({.output = 40});
  EXPECT_EQ(session_.Type("r&=v"), kTooLong);
  EXPECT_FALSE(session_.GetState().GetSymbol("r"));
}

// "\tDefining Reference : r = 2" has 27 characters.
TEST_F(DefinitionLimits, AReferenceToANumberMayBeTooLong) {
  Limit({.output = 26});
  EXPECT_EQ(session_.Type("r&=1+1"), kTooLong);
  EXPECT_FALSE(session_.GetState().GetSymbol("r"));
  Limit({.output = 27});
  EXPECT_EQ(session_.Type("r&=1+1"), "\tDefining Reference : r = 2\n");
}

// The two instructions and the end of the program are steps, and so is the value that is written.
TEST_F(DefinitionLimits, AReferenceToANumberTakesAStepToWrite) {
  Limit({.steps = 3});
  EXPECT_EQ(session_.Type("r&=1+1"), kTooManySteps);
  EXPECT_FALSE(session_.GetState().GetSymbol("r"));
  Limit({.steps = 4});
  EXPECT_EQ(session_.Type("r&=1+1"), "\tDefining Reference : r = 2\n");
}

}  // namespace
}  // namespace Quarn

// Tests of Dispatch: which implementation it remembers for which operand types.
#include "interpreter/dispatch.h"

#include <gtest/gtest.h>

namespace Quarn {
namespace {

// Classes are known by an address, so each needs one of its own.
constexpr char kA[] = "A";
constexpr char kB[] = "B";
constexpr char kOthers[5][2] = {"0", "1", "2", "3", "4"};

TEST(Dispatch, FindsNothingInTheBeginning) {
  const Dispatch<int> dispatch;
  for (std::size_t op = 0; op < kOperators; ++op) {
    EXPECT_EQ(dispatch.Find(op, kA, kB), nullptr) << op;
  }
}

TEST(Dispatch, FindsWhatItWasToldForExactlyTheseTypes) {
  Dispatch<int> dispatch;
  dispatch.Remember(2, kA, kB, 7);
  ASSERT_NE(dispatch.Find(2, kA, kB), nullptr);
  EXPECT_EQ(*dispatch.Find(2, kA, kB), 7);
  EXPECT_EQ(dispatch.Find(2, kB, kA), nullptr);
  EXPECT_EQ(dispatch.Find(2, kA, kA), nullptr);
  EXPECT_EQ(dispatch.Find(3, kA, kB), nullptr);
}

TEST(Dispatch, ForgetsTheOldestWhenItIsFull) {
  Dispatch<int> dispatch;
  for (int i = 0; i < 5; ++i) dispatch.Remember(1, kOthers[i], kA, i);
  EXPECT_EQ(dispatch.Find(1, kOthers[0], kA), nullptr);
  for (int i = 1; i < 5; ++i) {
    ASSERT_NE(dispatch.Find(1, kOthers[i], kA), nullptr) << i;
    EXPECT_EQ(*dispatch.Find(1, kOthers[i], kA), i);
  }
}

TEST(Dispatch, OneOperatorDoesNotCrowdOutAnother) {
  Dispatch<int> dispatch;
  dispatch.Remember(1, kA, kB, 7);
  for (const char* type : kOthers) dispatch.Remember(2, type, kA, 8);
  ASSERT_NE(dispatch.Find(1, kA, kB), nullptr);
  EXPECT_EQ(*dispatch.Find(1, kA, kB), 7);
}

}  // namespace
}  // namespace Quarn

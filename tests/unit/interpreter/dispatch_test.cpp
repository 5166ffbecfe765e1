// Tests of Dispatch: which implementation it remembers for which operand types.
#include "interpreter/dispatch.h"

#include <gtest/gtest.h>

namespace Quarn {
namespace {

// Types are known by their address, so each needs one of its own.
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
  const int body = 1;
  dispatch.Remember(2, kA, kB, &body);
  EXPECT_EQ(dispatch.Find(2, kA, kB), &body);
  EXPECT_EQ(dispatch.Find(2, kB, kA), nullptr);
  EXPECT_EQ(dispatch.Find(2, kA, kA), nullptr);
  EXPECT_EQ(dispatch.Find(3, kA, kB), nullptr);
  EXPECT_EQ(dispatch.Find(2, kA, nullptr), nullptr);
}

TEST(Dispatch, TellsAUnaryOperatorByItsMissingSide) {
  Dispatch<int> dispatch;
  const int unary = 1, binary = 2;
  dispatch.Remember(0, kA, nullptr, &unary);
  dispatch.Remember(0, kA, kA, &binary);
  EXPECT_EQ(dispatch.Find(0, kA, nullptr), &unary);
  EXPECT_EQ(dispatch.Find(0, kA, kA), &binary);
}

TEST(Dispatch, ForgetsTheOldestWhenItIsFull) {
  Dispatch<int> dispatch;
  const int bodies[5] = {};
  for (int i = 0; i < 5; ++i) dispatch.Remember(1, kOthers[i], kA, &bodies[i]);
  EXPECT_EQ(dispatch.Find(1, kOthers[0], kA), nullptr);
  for (int i = 1; i < 5; ++i) EXPECT_EQ(dispatch.Find(1, kOthers[i], kA), &bodies[i]) << i;
}

TEST(Dispatch, OneOperatorDoesNotCrowdOutAnother) {
  Dispatch<int> dispatch;
  const int body = 1;
  dispatch.Remember(1, kA, kB, &body);
  for (const char* type : kOthers) dispatch.Remember(2, type, kA, &body);
  EXPECT_EQ(dispatch.Find(1, kA, kB), &body);
}

}  // namespace
}  // namespace Quarn

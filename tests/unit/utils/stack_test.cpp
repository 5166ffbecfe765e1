#include "utils/stack.h"

#include <gtest/gtest.h>

#include <memory>

namespace Quarn {
namespace {

using Numbers = Stack<std::shared_ptr<int>>;

void PushUpTo(Numbers& stack, int count) {
  for (int i = 0; i < count; ++i) stack.Push(std::make_shared<int>(i));
}

TEST(Stack, CountsFromTheTop) {
  Numbers stack;
  PushUpTo(stack, 3);
  EXPECT_EQ(*stack[0], 2);
  EXPECT_EQ(*stack[2], 0);
}

TEST(Stack, KeepsWhatItHoldsWhenItGrows) {
  Numbers stack;
  PushUpTo(stack, 1000);
  ASSERT_EQ(stack.GetSize(), 1000U);
  for (int i = 999; i >= 0; --i) EXPECT_EQ(*stack.Pop(), i);
  EXPECT_TRUE(stack.IsEmpty());
}

TEST(Stack, DestroysWhatIsDropped) {
  Numbers stack;
  PushUpTo(stack, 4);
  const std::weak_ptr<int> third = stack[1];
  const std::weak_ptr<int> first = stack[3];
  stack.Drop(2);
  EXPECT_TRUE(third.expired());
  EXPECT_FALSE(first.expired());
  stack.Shrink(3);  // there is less
  EXPECT_EQ(stack.GetSize(), 2U);
  stack.Shrink(0);
  EXPECT_TRUE(first.expired());
}

TEST(Stack, GivesItsStorageBack) {
  Numbers stack;
  PushUpTo(stack, 20);
  const std::weak_ptr<int> top = stack[0];
  EXPECT_GE(stack.GetBytesKept(), stack.GetBytes());
  EXPECT_EQ(stack.GetBytes(), 20 * sizeof(std::shared_ptr<int>));
  stack.GiveBack();
  EXPECT_TRUE(top.expired());
  EXPECT_EQ(stack.GetBytesKept(), 0U);
  PushUpTo(stack, 1);
  EXPECT_EQ(*stack[0], 0);
}

}  // namespace
}  // namespace Quarn

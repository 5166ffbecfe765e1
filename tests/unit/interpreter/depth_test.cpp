// Tests of Depth: levels are granted while there is stack.
#include "interpreter/depth.h"

#include <gtest/gtest.h>
#include <pthread.h>
#include <ucontext.h>

#include <vector>

#include "tests/support/sanitizers.h"

namespace Quarn {
namespace {

// How many levels are granted before one is refused, with some stack used for each.
[[gnu::noinline]] unsigned int Descend(Depth& depth) {
  const Depth::Level level(depth);
  if (!level.IsGranted()) return 0;
  volatile char used[1024] = {};
  const unsigned int below = Descend(depth);
  return below + 1 + static_cast<unsigned int>(used[0]);
}

unsigned int granted_elsewhere = 0;

void* DescendInThread(void*) {
  Depth depth;
  granted_elsewhere = Descend(depth);
  return nullptr;
}

void DescendInFiber() {
  Depth depth;
  granted_elsewhere = Descend(depth);
}

TEST(Depth, KnowsItsOutermostLevel) {
  Depth depth;
  const Depth::Level outermost(depth);
  EXPECT_TRUE(outermost.IsGranted());
  EXPECT_TRUE(depth.IsOutermost());
  {
    const Depth::Level inner(depth);
    EXPECT_FALSE(depth.IsOutermost());
  }
  EXPECT_TRUE(depth.IsOutermost());
}

TEST(Depth, GrantsThousandsOfLevelsAndThenRefuses) {
  Depth depth;
  EXPECT_GT(Descend(depth), 2000U);
  EXPECT_GT(Descend(depth), 2000U);
}

TEST(Depth, FollowsTheStackOfItsThread) {
  Depth depth;
  const unsigned int granted_here = Descend(depth);
  pthread_attr_t attributes;
  ASSERT_EQ(pthread_attr_init(&attributes), 0);
  ASSERT_EQ(pthread_attr_setstacksize(&attributes, 512U << 10), 0);
  pthread_t thread;
  ASSERT_EQ(pthread_create(&thread, &attributes, &DescendInThread, nullptr), 0);
  ASSERT_EQ(pthread_join(thread, nullptr), 0);
  pthread_attr_destroy(&attributes);
  EXPECT_GT(granted_elsewhere, 16U);
  EXPECT_LT(granted_elsewhere, granted_here / 2);
}

TEST(Depth, CountsLevelsOnAStackThatTheSystemDoesNotKnow) {
  if (kSanitized) GTEST_SKIP() << "sanitizers do not know of it either";
  std::vector<char> stack(4U << 20);
  ucontext_t here, fiber;
  ASSERT_EQ(getcontext(&fiber), 0);
  fiber.uc_stack.ss_sp = stack.data();
  fiber.uc_stack.ss_size = stack.size();
  fiber.uc_link = &here;
  makecontext(&fiber, &DescendInFiber, 0);
  ASSERT_EQ(swapcontext(&here, &fiber), 0);
  EXPECT_EQ(granted_elsewhere, 500U);
}

}  // namespace
}  // namespace Quarn

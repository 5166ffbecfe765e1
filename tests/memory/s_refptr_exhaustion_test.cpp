// Tests of s_refptr when there is no memory for its counts.
#include <gtest/gtest.h>

#include <array>
#include <new>

#include "tests/memory/scarce_memory.h"
#include "utils/s_refptr.h"

namespace Quarn {
namespace {

int deleted = 0;

struct Object {
  ~Object() { ++deleted; }
};

// Takes ownership of a new object while all but the object's own memory fails. Did it succeed?
bool MakeWithoutMemoryForCounts(s_refptr<Object>& pointer) {
  ScarceMemory::FailAt(2);
  try {
    pointer = s_refptr<Object>(new Object);
  } catch (const std::bad_alloc&) {
  }
  return !ScarceMemory::Stop();
}

// The pool has counts in store; it is asked until it has none.
TEST(SRefptrExhaustion, DeletesTheObjectThatItCannotShare) {
  std::array<s_refptr<Object>, 2000> pointers;
  std::size_t made = 0;
  while (made < pointers.size() && MakeWithoutMemoryForCounts(pointers[made])) ++made;
  ASSERT_LT(made, pointers.size());
  EXPECT_TRUE(pointers[made].IsNull());
  EXPECT_EQ(deleted, 1);
  pointers = {};
  EXPECT_EQ(deleted, static_cast<int>(made) + 1);
}

}  // namespace
}  // namespace Quarn

// Tests of s_refptr when there is no memory for its counts.
#include <gtest/gtest.h>

#include <new>
#include <utility>
#include <vector>

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

// The pool has counts in store, more of them after other tests; it is asked until it has none.
TEST(SRefptrExhaustion, DeletesTheObjectThatItCannotShare) {
  constexpr std::size_t kMoreThanAnyStore = 10'000'000;
  deleted = 0;
  std::vector<s_refptr<Object>> pointers;
  s_refptr<Object> pointer;
  while (pointers.size() < kMoreThanAnyStore && MakeWithoutMemoryForCounts(pointer)) {
    pointers.push_back(std::move(pointer));
  }
  ASSERT_LT(pointers.size(), kMoreThanAnyStore);
  EXPECT_TRUE(pointer.IsNull());
  EXPECT_EQ(deleted, 1);
  const std::size_t made = pointers.size();
  pointers.clear();
  EXPECT_EQ(deleted, static_cast<int>(made) + 1);
}

}  // namespace
}  // namespace Quarn

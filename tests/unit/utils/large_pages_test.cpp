// Tests that storage is there in its whole size, and that what is large begins a large page.
#include "utils/large_pages.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>

namespace Quarn {
namespace {

TEST(AllocateLarge, GivesStorageOfAnySize) {
  for (const std::size_t bytes :
       {std::size_t{0}, std::size_t{1}, kLargePage - 1, kLargePage, 3 * kLargePage + 5}) {
    char* storage = static_cast<char*>(AllocateLarge(bytes));
    std::fill_n(storage, bytes, 'x');
    EXPECT_EQ(std::count(storage, storage + bytes, 'x'), static_cast<std::ptrdiff_t>(bytes));
    FreeLarge(storage, bytes);
  }
}

#if defined(__linux__)
TEST(AllocateLarge, BeginsWithALargePage) {
  for (const std::size_t bytes : {kLargePage, 2 * kLargePage + 1}) {
    void* storage = AllocateLarge(bytes);
    EXPECT_EQ(reinterpret_cast<std::uintptr_t>(storage) % kLargePage, 0U);
    FreeLarge(storage, bytes);
  }
}
#endif

TEST(FreeLarge, TakesNull) {
  FreeLarge(nullptr, 0);
  FreeLarge(nullptr, kLargePage);
}

}  // namespace
}  // namespace Quarn

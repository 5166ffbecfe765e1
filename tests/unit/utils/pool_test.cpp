// Tests of Pool: blocks are big enough, aligned, apart from each other, and used again.
#include "utils/pool.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>
#include <set>
#include <thread>
#include <vector>

// The address sanitizer wants to see every block, so none is kept for the next one.
#if defined(__SANITIZE_ADDRESS__)
#define NO_POOL_HERE
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define NO_POOL_HERE
#endif
#endif

namespace Quarn {
namespace {

constexpr std::size_t kLargest = 300;  // beyond what is kept for the next one

TEST(Pool, BlocksHoldTheirSizeAndAreAligned) {
  for (std::size_t size = 0; size <= kLargest; ++size) {
    void* block = Pool::Allocate(size);
    ASSERT_NE(block, nullptr);
    // An object of that size asks for no more.
    const std::size_t alignment =
        size % alignof(std::max_align_t) == 0 ? alignof(std::max_align_t) : 8;
    EXPECT_EQ(reinterpret_cast<std::uintptr_t>(block) % alignment, 0U) << size;
    std::memset(block, 0xA5, size);
    Pool::Free(block, size);
  }
}

// As many as are cut from several large pages.
TEST(Pool, BlocksInUseDoNotOverlap) {
  std::vector<unsigned char*> blocks;
  for (std::size_t i = 0; i < 100 * kLargest; ++i) {
    const std::size_t size = i % kLargest + 1;
    blocks.push_back(static_cast<unsigned char*>(Pool::Allocate(size)));
    std::memset(blocks.back(), static_cast<int>(i % 251), size);
    if (i % 3) continue;
    Pool::Free(blocks.back(), size);
    blocks.back() = nullptr;
  }
  for (std::size_t i = 0; i < blocks.size(); ++i) {
    const std::size_t size = i % kLargest + 1;
    for (std::size_t at = 0; blocks[i] && at < size; ++at) ASSERT_EQ(blocks[i][at], i % 251);
    Pool::Free(blocks[i], size);
  }
}

TEST(Pool, FreeingNullDoesNothing) {
  Pool::Free(nullptr, 8);
  Pool::Free(nullptr, kLargest);
}

TEST(Pool, BlocksMayBeGivenBackOnAnotherThread) {
  std::vector<void*> blocks;
  std::thread([&] {
    for (int i = 0; i < 100; ++i) blocks.push_back(Pool::Allocate(24));
  }).join();
  for (void* block : blocks) {
    std::memset(block, 1, 24);
    Pool::Free(block, 24);
  }
  std::thread([&] {
    for (void*& block : blocks) block = Pool::Allocate(24);
    for (void* block : blocks) Pool::Free(block, 24);
  }).join();
}

#if !defined(NO_POOL_HERE)
TEST(Pool, ABlockGivenBackIsTheNextOfItsSize) {
  void* first = Pool::Allocate(25);
  Pool::Free(first, 25);
  void* second = Pool::Allocate(30);  // both come in blocks of 32
  EXPECT_EQ(second, first);
  Pool::Free(second, 30);
}
#endif

}  // namespace
}  // namespace Quarn

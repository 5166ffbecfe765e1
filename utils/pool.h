// Pool keeps the small blocks that values and their counts give back, for the next one of the same
// size: an expression makes and drops a value per operand, and the general allocator would be the
// dearest part of it. One free list per thread and size, so nothing is locked; a block may be given
// back on another thread than the one that asked for it.
//   void* block = Pool::Allocate(sizeof(Scalar));
//   Pool::Free(block, sizeof(Scalar));
#pragma once

#include <cstddef>
#include <new>

namespace Quarn {

class Pool {
 public:
  // A block of at least `size` bytes, aligned for every type of no more than the default alignment.
  // Throws std::bad_alloc.
  static void* Allocate(std::size_t size) {
    const std::size_t index = Index(size);
    if (!kPooled || index >= kSizes || !lists_.head[index]) return AllocateFresh(size);
    Block* block = lists_.head[index];
    lists_.head[index] = block->next;
    return block;
  }

  // Gives a block back. REQUIRES: it came from Allocate with the same size, or is null.
  static void Free(void* block, std::size_t size) noexcept {
    const std::size_t index = Index(size);
    if (!kPooled || index >= kSizes) return ::operator delete(block);
    if (block) lists_.head[index] = new (block) Block{lists_.head[index]};
  }

 private:
  // Under a sanitizer every block comes from the general allocator, which then sees each misuse.
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
  static constexpr bool kPooled = false;
#elif defined(__has_feature)
#if __has_feature(address_sanitizer) || __has_feature(thread_sanitizer) || \
    __has_feature(memory_sanitizer)
  static constexpr bool kPooled = false;
#else
  static constexpr bool kPooled = true;
#endif
#else
  static constexpr bool kPooled = true;
#endif

  static constexpr std::size_t kStep = 16;
  static constexpr std::size_t kSizes = 16;  // blocks up to 256 bytes

  struct Block {
    Block* next;
  };

  // Plain data, so that reading it needs no guard, and a block given back by an object that dies
  // after the thread's own clean-up still finds a list.
  struct FreeLists {
    Block* head[kSizes];
    bool freed_at_exit;
  };
  static constinit thread_local FreeLists lists_;

  struct AtThreadExit;

  static constexpr std::size_t Index(std::size_t size) { return (size - 1) / kStep; }
  static void* AllocateFresh(std::size_t size);
};

}  // namespace Quarn

// Pool allocates the small blocks of values and their counts, since an expression makes and drops a
// value per operand. Blocks are cut from slabs and freed to a list per size; slabs are never freed.
// The lists are thread-local, so nothing is locked, and a thread that ends leaves them to the next
// one that starts. A block may be freed on another thread.
//   void* block = Pool::Allocate(sizeof(Scalar));
//   Pool::Free(block, sizeof(Scalar));
#pragma once

#include <cstddef>
#include <new>

namespace Quarn {

class Pool {
 public:
  // Aligned for any object of that size that is not over-aligned. Throws std::bad_alloc.
  static void* Allocate(std::size_t size) {
    const std::size_t index = Index(size);
    if (!kPooled || index >= kSizes || !lists_.free[index]) return AllocateFresh(size);
    Block* block = lists_.free[index];
    lists_.free[index] = block->next;
    return block;
  }

  // REQUIRES: the block is null or came from Allocate with the same size.
  static void Free(void* block, std::size_t size) noexcept {
    const std::size_t index = Index(size);
    if (!kPooled || index >= kSizes) return ::operator delete(block);
    if (block) lists_.free[index] = new (block) Block{lists_.free[index]};
  }

 private:
  // Sanitizers must see every block, so there the general allocator serves all.
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

  static constexpr std::size_t kStep = 8;    // the counts of a shared pointer
  static constexpr std::size_t kSizes = 32;  // blocks up to 256 bytes

  struct Block {
    Block* next;
  };

  // Plain data: access needs no initialisation guard, and an object destroyed after the thread's
  // clean-up can still free its block.
  struct Lists {
    Block* free[kSizes];
  };
  static constinit thread_local Lists lists_;
  static Lists left_behind_;  // by ended threads

  struct AtThreadExit;

  static constexpr std::size_t Index(std::size_t size) { return (size - 1) / kStep; }
  static void* AllocateFresh(std::size_t size);
  static void CutSlab(std::size_t index);
  static void Splice(Lists& from, Lists& to);
};

}  // namespace Quarn

// Pool hands out the small blocks that values and their counts live in. An expression makes and
// drops a value per operand, and the general allocator would be the dearest part of it. Blocks are
// cut from slabs, and those given back wait in a list per size for the next one. Slabs are kept to
// the end of the process; the lists belong to a thread, so nothing is locked, and a thread that
// ends leaves them to the next one that begins. A block may be given back on another thread than
// the one that asked.
//   void* block = Pool::Allocate(sizeof(Scalar));
//   Pool::Free(block, sizeof(Scalar));
#pragma once

#include <cstddef>
#include <new>

namespace Quarn {

class Pool {
 public:
  // A block of at least `size` bytes, aligned for any object of that size, but for types that ask
  // for more than the default alignment. Throws std::bad_alloc.
  static void* Allocate(std::size_t size) {
    const std::size_t index = Index(size);
    if (!kPooled || index >= kSizes || !lists_.free[index]) return AllocateFresh(size);
    Block* block = lists_.free[index];
    lists_.free[index] = block->next;
    return block;
  }

  // Gives a block back. REQUIRES: it came from Allocate with the same size, or is null.
  static void Free(void* block, std::size_t size) noexcept {
    const std::size_t index = Index(size);
    if (!kPooled || index >= kSizes) return ::operator delete(block);
    if (block) lists_.free[index] = new (block) Block{lists_.free[index]};
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

  // The counts of a shared pointer take one step.
  static constexpr std::size_t kStep = 8;
  static constexpr std::size_t kSizes = 32;  // blocks up to 256 bytes

  struct Block {
    Block* next;
  };

  // Plain data, so that reading it needs no guard, and a block given back by an object that dies
  // after the thread's own clean-up still finds a list.
  struct Lists {
    Block* free[kSizes];
  };
  static constinit thread_local Lists lists_;
  static Lists left_behind_;  // by threads that ended

  struct AtThreadExit;

  static constexpr std::size_t Index(std::size_t size) { return (size - 1) / kStep; }
  static void* AllocateFresh(std::size_t size);
  static void CutSlab(std::size_t index);
  static void Splice(Lists& from, Lists& to);
};

}  // namespace Quarn

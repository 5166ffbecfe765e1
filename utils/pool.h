// Pool keeps the small blocks that values and their counts give back, for the next one of the same
// size: an expression makes and drops a value per operand, and the general allocator would be the
// dearest part of it. One free list per thread and size, so nothing is locked; a block may be given
// back on another thread than the one that asked for it.
//   void* block = Pool::Allocate(sizeof(Scalar));
//   Pool::Free(block, sizeof(Scalar));
#pragma once

#include <cstddef>

namespace Quarn {

class Pool {
 public:
  // A block of at least `size` bytes, aligned for every type of no more than the default alignment.
  // Throws std::bad_alloc.
  static void* Allocate(std::size_t size);
  // Gives a block back. REQUIRES: it came from Allocate with the same size, or is null.
  static void Free(void* block, std::size_t size) noexcept;
};

}  // namespace Quarn

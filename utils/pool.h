// Pool allocates the small blocks of values and their counts, since an expression makes and drops a
// value per operand. Blocks are cut from slabs and freed to a list per size; slabs are never freed.
// The lists are thread-local, so nothing is locked, and a thread that ends leaves them to the next
// one that starts. A block may be freed on another thread. Nothing here depends on how a host is
// compiled: whether blocks are kept at all was decided when the library was.
//   void* block = Pool::Allocate(sizeof(Scalar));
//   Pool::Free(block, sizeof(Scalar));
#pragma once

#include <cstddef>

#include "api.h"

namespace Quarn {

class MIRLOW_API Pool {
 public:
  // Aligned for any object of that size that is not over-aligned. Throws std::bad_alloc.
  static void* Allocate(std::size_t size);

  // REQUIRES: the block is null or came from Allocate with the same size.
  static void Free(void* block, std::size_t size) noexcept;
};

}  // namespace Quarn

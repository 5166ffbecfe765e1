#include "utils/large_pages.h"

#if defined(__linux__)
#include <sys/mman.h>
#endif

#include <memory>

namespace Quarn {

#if defined(__linux__)

void UseLargePages(void* storage, std::size_t bytes) noexcept {
  if (!std::align(kLargePage, kLargePage, storage, bytes)) return;
  madvise(storage, bytes - bytes % kLargePage, MADV_HUGEPAGE);
}

#else

void UseLargePages(void*, std::size_t) noexcept {}

#endif

}  // namespace Quarn

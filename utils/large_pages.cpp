#include "utils/large_pages.h"

#include <new>

#if defined(__linux__)
#include <sys/mman.h>
#endif

namespace Quarn {

#if defined(__linux__)

namespace {

constexpr std::align_val_t kAlignment{kLargePage};

}  // namespace

void* AllocateLarge(std::size_t bytes) {
  if (bytes < kLargePage) return ::operator new(bytes);
  void* storage = ::operator new(bytes, kAlignment);
  // Where there are no large pages, nothing changes.
  madvise(storage, bytes - bytes % kLargePage, MADV_HUGEPAGE);
  return storage;
}

void FreeLarge(void* storage, std::size_t bytes) noexcept {
  if (bytes < kLargePage) return ::operator delete(storage);
  ::operator delete(storage, kAlignment);
}

#else

void* AllocateLarge(std::size_t bytes) { return ::operator new(bytes); }

void FreeLarge(void* storage, std::size_t) noexcept { ::operator delete(storage); }

#endif

}  // namespace Quarn

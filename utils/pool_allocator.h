// PoolAllocator lets a container of the standard library take its storage from the pool.
//   std::vector<int, PoolAllocator<int>> numbers;
#pragma once

#include <cstddef>

#include "utils/pool.h"

namespace Quarn {

// The names are those that containers ask for.
// NOLINTBEGIN(readability-identifier-naming)
template <class T>
struct PoolAllocator {
  using value_type = T;

  PoolAllocator() = default;
  template <class Other>
  explicit(false) PoolAllocator(const PoolAllocator<Other>&) noexcept {}

  T* allocate(std::size_t count) { return static_cast<T*>(Pool::Allocate(count * kBytes)); }
  void deallocate(T* storage, std::size_t count) noexcept { Pool::Free(storage, count * kBytes); }

  friend bool operator==(const PoolAllocator&, const PoolAllocator&) = default;

 private:
  static constexpr std::size_t kBytes = sizeof(T);  // NOLINT(bugprone-sizeof-expression): pointer
};
// NOLINTEND(readability-identifier-naming)

}  // namespace Quarn

// PoolAllocator lets a container of the standard library take its storage from the pool.
//   std::vector<int, PoolAllocator<int>> numbers;
#pragma once

#include <cstddef>

#include "utils/pool.h"

namespace Quarn {

template <class T>
struct PoolAllocator {
  using value_type = T;

  PoolAllocator() = default;
  template <class Other>
  explicit(false) PoolAllocator(const PoolAllocator<Other>&) noexcept {}

  T* allocate(std::size_t count) { return static_cast<T*>(Pool::Allocate(count * sizeof(T))); }
  void deallocate(T* storage, std::size_t count) noexcept {
    Pool::Free(storage, count * sizeof(T));
  }

  friend bool operator==(const PoolAllocator&, const PoolAllocator&) = default;
};

}  // namespace Quarn

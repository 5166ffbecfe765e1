// Storage that is used again and again, but not kept once it has grown large.
#pragma once

#include <cstddef>
#include <vector>

namespace Quarn {

// Gives back what is beyond a megabyte, if nothing is in it.
template <class T>
void ShrinkIfLarge(std::vector<T>& storage) {
  constexpr std::size_t kLarge = 1U << 20;
  if (storage.empty() && storage.capacity() * sizeof(T) > kLarge) std::vector<T>().swap(storage);
}

}  // namespace Quarn

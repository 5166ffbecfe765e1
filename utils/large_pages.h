// Storage in large pages where the system has them: the first touch of each small page of four
// kilobytes takes a fault, which is a fifth of the time of a long chain of references.
//   void* storage = AllocateLarge(bytes);
//   FreeLarge(storage, bytes);
#pragma once

#include <cstddef>

namespace Quarn {

inline constexpr std::size_t kLargePage = 2U << 20;  // bytes

// Storage of at least a large page lies in some, if there are any; what is smaller does not. Throws
// std::bad_alloc.
void* AllocateLarge(std::size_t bytes);
// REQUIRES: it is null or came from AllocateLarge with the same size.
void FreeLarge(void* storage, std::size_t bytes) noexcept;

}  // namespace Quarn

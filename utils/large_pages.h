// Large pages where the system has them: the first touch of each small page of four kilobytes takes
// a fault, which is a fifth of the time of a long chain of references.
//   char* chunk = ...;
//   UseLargePages(chunk, bytes);
#pragma once

#include <cstddef>

namespace Quarn {

inline constexpr std::size_t kLargePage = 2U << 20;  // bytes

// Asks for large pages wherever one fits into storage that was not touched yet. Without them
// nothing changes.
void UseLargePages(void* storage, std::size_t bytes) noexcept;

}  // namespace Quarn

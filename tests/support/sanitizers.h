// Is this a build with sanitizers? Then memory is dearer, stack frames are larger and every step is
// slower, and tests of size do with less.
#pragma once

namespace Quarn {

#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
#define MIRLOW_SANITIZED 1
#elif defined(__has_feature)
#if __has_feature(address_sanitizer) || __has_feature(thread_sanitizer) || \
    __has_feature(memory_sanitizer)
#define MIRLOW_SANITIZED 1
#endif
#endif

#ifdef MIRLOW_SANITIZED
inline constexpr bool kSanitized = true;
#else
inline constexpr bool kSanitized = false;
#endif

}  // namespace Quarn

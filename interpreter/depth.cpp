#include "interpreter/depth.h"

#if defined(_WIN32)
#include <windows.h>
#else
#include <pthread.h>
#endif

#include <algorithm>
#include <cstddef>
#include <cstdint>

namespace Quarn {
namespace {

// The levels granted on a stack that the system does not know (a fiber's).
constexpr unsigned int kLevelsOnUnknownStack = 500;

// Where the stack may grow without limit, it is used as if it had this size.
constexpr std::size_t kLargestStack = 64U << 20;

// What stays free for the work between two levels: printing, allocating, an operator's body.
constexpr std::size_t kReserve = 128U << 10;

struct StackBounds {
  std::uintptr_t lowest = 0;  // grows down towards this address
  std::size_t size = 0;
  std::size_t reserve = 0;  // with less above the lowest address, it is low
};

// The lowest address and the size in bytes; a size of 0 when the system does not tell.
#if defined(_WIN32)

void AskForStack(std::uintptr_t& lowest, std::size_t& size) {
  ULONG_PTR low = 0;
  ULONG_PTR high = 0;
  GetCurrentThreadStackLimits(&low, &high);
  lowest = low;
  size = high - low;
}

#else

void AskForStack(std::uintptr_t& lowest, std::size_t& size) {
  pthread_attr_t attributes;
  // It fails only without /proc or without memory.
  if (pthread_getattr_np(pthread_self(), &attributes) != 0) return;  // GCOVR_EXCL_BR_LINE
  void* start = nullptr;
  pthread_attr_getstack(&attributes, &start, &size);
  pthread_attr_destroy(&attributes);
  lowest = reinterpret_cast<std::uintptr_t>(start);
}

#endif

StackBounds FindStack() {
  StackBounds stack;
  AskForStack(stack.lowest, stack.size);
  const std::size_t used = std::min(stack.size, kLargestStack);
  stack.reserve = stack.size - used + std::min(used / 4, kReserve);
  return stack;
}

}  // namespace

bool Depth::IsStackLow(const void* frame) const {
  static thread_local const StackBounds stack = FindStack();
  // Of a frame elsewhere this is beyond the size, too, since it wraps.
  const std::size_t left = reinterpret_cast<std::uintptr_t>(frame) - stack.lowest;
  return left < stack.size ? left < stack.reserve : levels_ > kLevelsOnUnknownStack;
}

}  // namespace Quarn

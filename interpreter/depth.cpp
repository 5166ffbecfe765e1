#include "interpreter/depth.h"

#include <pthread.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>

namespace Quarn {
namespace {

// On a stack that the system does not know (a fiber's), so many levels are granted.
constexpr unsigned int kLevelsOnUnknownStack = 500;

// Where the stack may grow without limit, it is used as if it had this size.
constexpr std::size_t kLargestStack = 64U << 20;

// What stays free for the work between two levels: printing, allocating, an operator's body.
constexpr std::size_t kReserve = 128U << 10;

struct StackBounds {
  std::uintptr_t lowest = 0;  // grows down towards this address
  std::uintptr_t top = 0;
  std::uintptr_t low_mark = 0;  // below it, it is low
};

StackBounds FindStack() {
  StackBounds stack;
  pthread_attr_t attributes;
  if (pthread_getattr_np(pthread_self(), &attributes) != 0) return stack;
  void* lowest = nullptr;
  std::size_t size = 0;
  pthread_attr_getstack(&attributes, &lowest, &size);
  pthread_attr_destroy(&attributes);
  stack.lowest = reinterpret_cast<std::uintptr_t>(lowest);
  stack.top = stack.lowest + size;
  const std::size_t used = std::min(size, kLargestStack);
  stack.low_mark = stack.top - used + std::min(used / 4, kReserve);
  return stack;
}

}  // namespace

bool Depth::IsStackLow(const void* frame) const {
  static thread_local const StackBounds stack = FindStack();
  const auto here = reinterpret_cast<std::uintptr_t>(frame);
  if (here < stack.lowest || here >= stack.top) return levels_ > kLevelsOnUnknownStack;
  return here < stack.low_mark;
}

}  // namespace Quarn

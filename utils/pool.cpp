#include "utils/pool.h"

#include <new>

namespace Quarn {
namespace {

// Under a sanitizer every block comes from the general allocator, which then sees each misuse.
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
constexpr bool kPooled = false;
#elif defined(__has_feature)
#if __has_feature(address_sanitizer) || __has_feature(thread_sanitizer) || \
    __has_feature(memory_sanitizer)
constexpr bool kPooled = false;
#else
constexpr bool kPooled = true;
#endif
#else
constexpr bool kPooled = true;
#endif

constexpr std::size_t kStep = 16;
constexpr std::size_t kSizes = 16;  // blocks up to 256 bytes

struct Block {
  Block* next;
};

// Plain data, so that reading it needs no guard, and a block given back by an object that dies
// after the thread's own clean-up still finds a list.
struct FreeLists {
  Block* head[kSizes];
  bool cleaned_at_exit;
};
constinit thread_local FreeLists lists{};

void FreeAll() {
  for (Block*& head : lists.head) {
    while (head) {
      Block* next = head->next;
      ::operator delete(head);
      head = next;
    }
  }
}

struct AtThreadExit {
  ~AtThreadExit() { FreeAll(); }
};

constexpr std::size_t Index(std::size_t size) { return (size - 1) / kStep; }

void* AllocateFresh(std::size_t index) {
  if (!lists.cleaned_at_exit) {
    static thread_local AtThreadExit at_thread_exit;
    lists.cleaned_at_exit = true;
  }
  return ::operator new((index + 1) * kStep);
}

}  // namespace

void* Pool::Allocate(std::size_t size) {
  const std::size_t index = Index(size);
  if (!kPooled || index >= kSizes) return ::operator new(size);
  Block*& head = lists.head[index];
  if (!head) return AllocateFresh(index);
  Block* block = head;
  head = block->next;
  return block;
}

void Pool::Free(void* block, std::size_t size) noexcept {
  if (!block) return;
  const std::size_t index = Index(size);
  if (!kPooled || index >= kSizes) return ::operator delete(block);
  lists.head[index] = new (block) Block{lists.head[index]};
}

}  // namespace Quarn

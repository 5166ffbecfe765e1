#include "utils/pool.h"

namespace Quarn {

constinit thread_local Pool::FreeLists Pool::lists_{};

struct Pool::AtThreadExit {
  ~AtThreadExit() {
    for (Block*& head : lists_.head) {
      while (head) {
        Block* next = head->next;
        ::operator delete(head);
        head = next;
      }
    }
  }
};

void* Pool::AllocateFresh(std::size_t size) {
  const std::size_t index = Index(size);
  if (!kPooled || index >= kSizes) return ::operator new(size);
  if (!lists_.freed_at_exit) {
    static thread_local AtThreadExit at_thread_exit;
    lists_.freed_at_exit = true;
  }
  return ::operator new((index + 1) * kStep);
}

}  // namespace Quarn

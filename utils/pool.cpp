#include "utils/pool.h"

#include <unistd.h>

#include <mutex>

namespace Quarn {
namespace {

constexpr std::size_t kSlabBytes = 4096;

// Guards left_behind_. Never destroyed, since a thread may end after static destruction.
std::mutex& GetMutex() {
  static auto* mutex = new std::mutex;
  return *mutex;
}

}  // namespace

constinit thread_local Pool::Lists Pool::lists_{};
constinit Pool::Lists Pool::left_behind_{};

void Pool::Splice(Lists& from, Lists& to) {
  for (std::size_t i = 0; i < kSizes; ++i) {
    if (!from.free[i]) continue;
    Block* last = from.free[i];
    while (last->next) last = last->next;
    last->next = to.free[i];
    to.free[i] = from.free[i];
    from.free[i] = nullptr;
  }
}

struct Pool::AtThreadExit {
  AtThreadExit() {
    const std::lock_guard lock(GetMutex());
    Splice(left_behind_, lists_);
  }
  ~AtThreadExit() {
    // When the main thread ends, so does the process.
    if (getpid() == gettid()) return;
    const std::lock_guard lock(GetMutex());
    Splice(lists_, left_behind_);
  }
};

void Pool::CutSlab(std::size_t index) {
  const std::size_t bytes = (index + 1) * kStep;
  char* slab = static_cast<char*>(::operator new(kSlabBytes));
  for (std::size_t at = kSlabBytes / bytes; at-- > 0;) {
    lists_.free[index] = new (slab + at * bytes) Block{lists_.free[index]};
  }
  // The list holds the slab, block by block.
}  // NOLINT(clang-analyzer-cplusplus.NewDeleteLeaks)

void* Pool::AllocateFresh(std::size_t size) {
  const std::size_t index = Index(size);
  if (!kPooled || index >= kSizes) return ::operator new(size);
  static thread_local AtThreadExit at_thread_exit;
  if (!lists_.free[index]) CutSlab(index);
  return Allocate(size);
}

}  // namespace Quarn

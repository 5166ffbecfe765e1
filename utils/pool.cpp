#include "utils/pool.h"

#if defined(__linux__)
#include <unistd.h>
#endif

#include <mutex>
#include <new>
#include <utility>

#include "utils/large_pages.h"

namespace Quarn {
namespace {

// Sanitizers must see every block, so there the general allocator serves all.
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

constexpr std::size_t kStep = 8;    // the counts of a shared pointer
constexpr std::size_t kSizes = 32;  // blocks up to 256 bytes
constexpr std::size_t kSlabBytes = 4096;

struct Block {
  Block* next;
};

struct Lists {
  Block* free[kSizes];
};

// Plain data: access needs no initialisation guard, and an object destroyed after the thread's
// clean-up can still free its block.
constinit thread_local Lists lists{};
constinit Lists left_behind{};  // by ended threads

#ifdef _WIN32
// The compiler cannot make a mutex there: it is made when it is first asked for, and never
// destroyed.
std::mutex& GetMutex() {
  static std::mutex& mutex = *new std::mutex;
  return mutex;
}
#else
// Guards what all threads share. Never destroyed, since a thread may end after static destruction;
// and made by the compiler, since a host's thread sanitizer does not see who was first to make it
// here.
union Forever {
  constexpr Forever() : mutex() {}
  ~Forever() {}  // NOLINT(modernize-use-equals-default): a union has no other

  std::mutex mutex;
};
constinit Forever forever;

std::mutex& GetMutex() { return forever.mutex; }
#endif

void Splice(Lists& from, Lists& to) {
  for (std::size_t i = 0; i < kSizes; ++i) {
    if (!from.free[i]) continue;
    Block* last = from.free[i];
    while (last->next) last = last->next;
    last->next = to.free[i];
    to.free[i] = from.free[i];
    from.free[i] = nullptr;
  }
}

struct AtThreadExit {
  AtThreadExit() {
    const std::lock_guard lock(GetMutex());
    Splice(left_behind, lists);
  }
  ~AtThreadExit() {
#if defined(__linux__)
    // When the main thread ends, so does the process.
    if (getpid() == gettid()) return;
#endif
    const std::lock_guard lock(GetMutex());
    Splice(lists, left_behind);
  }
};

constexpr std::size_t Index(std::size_t size) { return (size - 1) / kStep; }

// Where slabs come from once there are many: storage in large pages.
struct Chunk {
  static constexpr std::size_t kBytes = kLargePage;
  static constexpr std::size_t kSlabsBefore = 256;

  char* rest = nullptr;
  std::size_t bytes_left = 0;
  std::size_t slabs = 0;
};
constinit Chunk chunk{};  // guarded like left_behind

char* NewSlab() {
  const std::lock_guard lock(GetMutex());
  if (++chunk.slabs <= Chunk::kSlabsBefore) return static_cast<char*>(::operator new(kSlabBytes));
  if (chunk.bytes_left == 0) {
    chunk.rest = static_cast<char*>(AllocateLarge(Chunk::kBytes));
    chunk.bytes_left = Chunk::kBytes;
  }
  chunk.bytes_left -= kSlabBytes;
  return std::exchange(chunk.rest, chunk.rest + kSlabBytes);
}

void CutSlab(std::size_t index) {
  const std::size_t bytes = (index + 1) * kStep;
  char* slab = NewSlab();
  for (std::size_t at = kSlabBytes / bytes; at-- > 0;) {
    lists.free[index] = new (slab + at * bytes) Block{lists.free[index]};
  }
  // The list holds the slab, block by block.
}  // NOLINT(clang-analyzer-cplusplus.NewDeleteLeaks)

Block* Take(std::size_t index) {
  Block* block = lists.free[index];
  lists.free[index] = block->next;
  return block;
}

[[gnu::noinline]] void* AllocateFresh(std::size_t size) {
  const std::size_t index = Index(size);
  if (!kPooled || index >= kSizes) return AllocateLarge(size);
  static thread_local AtThreadExit at_thread_exit;
  if (!lists.free[index]) CutSlab(index);
  return Take(index);
}

}  // namespace

void* Pool::Allocate(std::size_t size) {
  const std::size_t index = Index(size);
  if (!kPooled || index >= kSizes || !lists.free[index]) return AllocateFresh(size);
  return Take(index);
}

void Pool::Free(void* block, std::size_t size) noexcept {
  const std::size_t index = Index(size);
  if (!kPooled || index >= kSizes) return FreeLarge(block, size);
  if (block) lists.free[index] = new (block) Block{lists.free[index]};
}

}  // namespace Quarn

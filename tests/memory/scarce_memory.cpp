#include "tests/memory/scarce_memory.h"

#include <cstdlib>
#include <new>

namespace Quarn {
namespace {

// Stands before each block; as large as the alignment that operator new promises.
struct alignas(std::max_align_t) Header {
  std::size_t size;
};
static_assert(sizeof(Header) == alignof(Header));

constexpr std::size_t kSlabBytes = 4096;
constexpr std::size_t kChunkBytes = 2U << 20;  // of slabs

thread_local bool is_counting = false;
thread_local std::size_t calls = 0;
thread_local std::size_t failing_call = 0;
thread_local long alive = 0;
thread_local long bytes = 0;

// One block more, or one less.
void Count(std::size_t size, long blocks) {
  if (size == kSlabBytes || size == kChunkBytes) return;
  alive += blocks;
  bytes += blocks * static_cast<long>(size);
}

// The block begins at a multiple of the alignment, and so far into what the system gives.
// REQUIRES: an alignment of at least that of Header.
void* Allocate(std::size_t size, std::size_t alignment = alignof(Header)) {
  if (is_counting && ++calls == failing_call) throw std::bad_alloc();
  const std::size_t whole = (alignment + size + alignment - 1) / alignment * alignment;
  auto* begin = static_cast<char*>(std::aligned_alloc(alignment, whole));
  if (!begin) throw std::bad_alloc();
  char* block = begin + alignment;
  reinterpret_cast<Header*>(block)[-1].size = size;
  Count(size, 1);
  return block;
}

void Free(void* block, std::size_t alignment = alignof(Header)) {
  if (!block) return;
  Count(static_cast<Header*>(block)[-1].size, -1);
  std::free(static_cast<char*>(block) - alignment);
}

}  // namespace

void ScarceMemory::FailAt(std::size_t call) {
  calls = 0;
  failing_call = call;
  is_counting = true;
}

bool ScarceMemory::Stop() {
  is_counting = false;
  return calls >= failing_call;
}

std::size_t ScarceMemory::CountCalls() { return calls; }

long ScarceMemory::CountAlive() { return alive; }

long ScarceMemory::CountBytes() { return bytes; }

}  // namespace Quarn

void* operator new(std::size_t size) { return Quarn::Allocate(size); }
void* operator new[](std::size_t size) { return Quarn::Allocate(size); }
void operator delete(void* block) noexcept { Quarn::Free(block); }
void operator delete[](void* block) noexcept { Quarn::Free(block); }
void operator delete(void* block, std::size_t) noexcept { Quarn::Free(block); }
void operator delete[](void* block, std::size_t) noexcept { Quarn::Free(block); }

void* operator new(std::size_t size, std::align_val_t alignment) {
  return Quarn::Allocate(size, static_cast<std::size_t>(alignment));
}
void operator delete(void* block, std::align_val_t alignment) noexcept {
  Quarn::Free(block, static_cast<std::size_t>(alignment));
}
void operator delete(void* block, std::size_t, std::align_val_t alignment) noexcept {
  Quarn::Free(block, static_cast<std::size_t>(alignment));
}

#include "tests/memory/scarce_memory.h"

#include <cstdlib>
#include <new>

namespace Quarn {
namespace {

// Stands before each block; as large as the alignment that operator new promises.
struct alignas(std::max_align_t) Header {
  std::size_t size;
};

constexpr std::size_t kSlabBytes = 4096;
constexpr std::size_t kChunkBytes = 8U << 20;  // of slabs

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

void* Allocate(std::size_t size) {
  if (is_counting && ++calls == failing_call) throw std::bad_alloc();
  auto* header = static_cast<Header*>(std::malloc(sizeof(Header) + size));
  if (!header) throw std::bad_alloc();
  header->size = size;
  Count(size, 1);
  return header + 1;
}

void Free(void* block) {
  if (!block) return;
  Header* header = static_cast<Header*>(block) - 1;
  Count(header->size, -1);
  std::free(header);
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

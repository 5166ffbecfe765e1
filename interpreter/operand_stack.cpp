#include "interpreter/operand_stack.h"

#include <algorithm>

namespace Quarn {

void OperandStack::Grow() {
  const std::size_t size = GetSize();
  const std::size_t capacity = std::max<std::size_t>(2 * GetCapacity(), 64);
  Operand* begin = std::allocator<Operand>().allocate(capacity);
  std::uninitialized_move(begin_, end_, begin);
  std::destroy(begin_, end_);
  if (begin_) std::allocator<Operand>().deallocate(begin_, GetCapacity());
  begin_ = begin;
  end_ = begin + size;
  limit_ = begin + capacity;
}

void OperandStack::ShrinkIfLarge() {
  constexpr std::size_t kLarge = 1U << 20;
  if (GetCapacity() * sizeof(Operand) <= kLarge) return;
  std::allocator<Operand>().deallocate(begin_, GetCapacity());
  begin_ = end_ = limit_ = nullptr;
}

}  // namespace Quarn

// OperandStack is what the machine computes on. Nothing is checked: programs push what they pop.
#pragma once

#include <cstddef>
#include <memory>
#include <new>
#include <utility>

#include "interpreter/operand.h"

namespace Quarn {

class OperandStack {
 public:
  OperandStack() = default;
  ~OperandStack() {
    Shrink(0);
    if (begin_) std::allocator<Operand>().deallocate(begin_, GetCapacity());
  }
  OperandStack(const OperandStack&) = delete;
  OperandStack& operator=(const OperandStack&) = delete;

  std::size_t GetSize() const { return static_cast<std::size_t>(end_ - begin_); }
  std::size_t GetCapacity() const { return static_cast<std::size_t>(limit_ - begin_); }

  void Push(double number) {
    if (end_ == limit_) Grow();
    new (end_++) Operand(number);
  }
  void Push(s_refptr<Symbol> value) { Push(Operand(std::move(value))); }
  void Push(Operand operand) {
    if (end_ == limit_) Grow();
    new (end_++) Operand(std::move(operand));
  }
  // From the top, which is 0.
  Operand& operator[](std::size_t depth) { return *(end_ - 1 - depth); }
  const Operand& operator[](std::size_t depth) const { return *(end_ - 1 - depth); }
  Operand Pop() {
    Operand operand = std::move(*--end_);
    end_->~Operand();
    return operand;
  }
  // Drops a plain number.
  void PopNumber() { --end_; }
  void Drop(std::size_t count) { Shrink(GetSize() - count); }
  void Shrink(std::size_t size) {
    while (GetSize() > size) (--end_)->~Operand();
  }
  // Gives back what grew beyond a megabyte. REQUIRES: it is empty.
  void ShrinkIfLarge();

 private:
  void Grow();

  Operand* begin_ = nullptr;
  Operand* end_ = nullptr;
  Operand* limit_ = nullptr;
};

}  // namespace Quarn

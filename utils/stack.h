// Stack is a stack without checks, for values that are pushed and popped all the time.
//   Stack<double> operands;
//   operands.Push(0.5);
//   double top = operands[0];
#pragma once

#include <algorithm>
#include <cstddef>
#include <memory>
#include <new>
#include <utility>

#include "utils/large_pages.h"

namespace Quarn {

template <class T>
class Stack {
 public:
  Stack() = default;
  ~Stack() { GiveBack(); }
  Stack(const Stack&) = delete;
  Stack& operator=(const Stack&) = delete;

  std::size_t GetSize() const { return static_cast<std::size_t>(end_ - begin_); }
  bool IsEmpty() const { return begin_ == end_; }
  // What the storage takes, and how much of that is in use.
  std::size_t GetBytesKept() const { return static_cast<std::size_t>(limit_ - begin_) * sizeof(T); }
  std::size_t GetBytes() const { return GetSize() * sizeof(T); }

  // Values move when it grows.
  template <class... Arguments>
  T& Push(Arguments&&... arguments) {
    if (end_ == limit_) Grow();
    return *new (end_++) T(std::forward<Arguments>(arguments)...);
  }
  // From the top, which is 0.
  T& operator[](std::size_t depth) { return *(end_ - 1 - depth); }
  const T& operator[](std::size_t depth) const { return *(end_ - 1 - depth); }
  // Null when it is empty.
  T* GetTop() const { return IsEmpty() ? nullptr : end_ - 1; }
  T Pop() {
    T value = std::move(*--end_);
    end_->~T();
    return value;
  }
  void Drop(std::size_t count) {
    for (; count > 0; --count) (--end_)->~T();
  }
  // Drops what is beyond a size; there may be less.
  void Shrink(std::size_t size) {
    while (GetSize() > size) (--end_)->~T();
  }
  // Drops everything, and the storage.
  void GiveBack() {
    Shrink(0);
    FreeLarge(begin_, GetBytesKept());
    begin_ = end_ = limit_ = nullptr;
  }

 private:
  void Grow() {
    const std::size_t size = GetSize();
    const std::size_t capacity = std::max<std::size_t>(2 * size, 16);
    T* begin = static_cast<T*>(AllocateLarge(capacity * sizeof(T)));
    std::uninitialized_move(begin_, end_, begin);
    GiveBack();
    begin_ = begin;
    end_ = begin + size;
    limit_ = begin + capacity;
  }

  T* begin_ = nullptr;
  T* end_ = nullptr;
  T* limit_ = nullptr;
};

}  // namespace Quarn

// s_bool_t<bool> is a truth value that stands in `if` and `while` but never becomes a number:
// it converts to a pointer to a function, which is null exactly when the value is false, and it is
// made from a bool alone, so neither `s_bool b = 5` nor `int i = b` compiles. Two are equal or not;
// they have no order.
//   s_bool found = text.Contains("=");
//   if (found) ...
#pragma once

#include "utils/fwd.h"

namespace Quarn {

template <class T>
class s_bool_t {
 public:
  // What converts neither to a number nor to a bool by accident.
  using Test = void (*)();

  constexpr s_bool_t() = default;
  // From a bool alone.
  template <std::same_as<T> Value>
  constexpr s_bool_t(Value value) : value_(value) {}

  // Null exactly when the value is false.
  constexpr operator Test() const { return value_ ? &IsTrue : nullptr; }
  constexpr bool operator!() const { return !value_; }

  // The pointers would compare.
  friend void operator<(s_bool_t, s_bool_t) = delete;
  friend void operator<=(s_bool_t, s_bool_t) = delete;
  friend void operator>(s_bool_t, s_bool_t) = delete;
  friend void operator>=(s_bool_t, s_bool_t) = delete;

 private:
  static void IsTrue() {}

  T value_ = false;
};

}  // namespace Quarn

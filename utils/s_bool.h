// s_bool_t<bool> is a truth value that works in `if` and `while` but never becomes a number: it
// converts to a function pointer, null when false (the safe-bool idiom), and only from a bool, so
// neither `s_bool b = 5` nor `int i = b` compiles. Equality works; there is no ordering.
//   s_bool found = text.Contains("=");
//   if (found) ...
#pragma once

#include "fwd.h"

namespace Quarn {

template <class T>
class s_bool_t {
 public:
  using Test = void (*)();

  constexpr s_bool_t() = default;
  template <std::same_as<T> Value>
  constexpr s_bool_t(Value value) : value_(value) {}

  constexpr operator Test() const { return value_ ? &IsTrue : nullptr; }
  constexpr bool operator!() const { return !value_; }

  // Otherwise the function pointers would be compared.
  friend void operator<(s_bool_t, s_bool_t) = delete;
  friend void operator<=(s_bool_t, s_bool_t) = delete;
  friend void operator>(s_bool_t, s_bool_t) = delete;
  friend void operator>=(s_bool_t, s_bool_t) = delete;

 private:
  static void IsTrue() {}

  T value_ = false;
};

}  // namespace Quarn

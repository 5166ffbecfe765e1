// s_int_t<T> is an integer with a state: number, infinite or not a number. A position that was not
// found is NaN, a count up to the end is INF. Sums and differences wrap modulo the width of T. Only
// a T converts to it: `s_uint n = -1` and `s_uint n = 2.7` do not compile.
//   s_uint position = text.Find("=");  // NaN when there is none
//   if (position.IsValid()) ...
#pragma once

#include <type_traits>

#include "s_bool.h"

namespace Quarn {

template <std::integral T>
class s_int_t {
 public:
  enum class State : unsigned int { kNumber = 0, kInfinite = 1, kNaN = 2 };

  static const s_int_t NaN;
  static const s_int_t INF;

  constexpr s_int_t() = default;
  template <std::same_as<T> Value>
  constexpr s_int_t(Value value) : value_(value) {}

  // The value without its state; 0 for NaN and INF.
  constexpr T Get() const { return value_; }
  constexpr State GetState() const { return state_; }

  constexpr s_bool IsValid() const { return state_ == State::kNumber; }
  constexpr s_bool IsNaN() const { return state_ == State::kNaN; }
  constexpr s_bool IsNull() const { return state_ == State::kNumber && value_ == 0; }

  // NaN beats INF, INF beats a number.
  friend constexpr s_int_t operator+(s_int_t a, s_int_t b) {
    return a.WithStateOf(b, static_cast<T>(a.Bits() + b.Bits()));
  }
  friend constexpr s_int_t operator-(s_int_t a, s_int_t b) {
    return a.WithStateOf(b, static_cast<T>(a.Bits() - b.Bits()));
  }
  constexpr s_int_t& operator+=(s_int_t other) { return *this = *this + other; }
  constexpr s_int_t& operator-=(s_int_t other) { return *this = *this - other; }

  // Any comparison with NaN is false, even ==; INF equals itself and is above every number.
  friend constexpr s_bool operator<=(s_int_t a, s_int_t b) {
    if (a.state_ == State::kNaN || b.state_ == State::kNaN) return false;
    if (b.state_ == State::kInfinite) return true;
    return a.state_ == State::kNumber && a.value_ <= b.value_;
  }
  friend constexpr s_bool operator>=(s_int_t a, s_int_t b) { return b <= a; }
  friend constexpr s_bool operator==(s_int_t a, s_int_t b) {
    return a.state_ == b.state_ && a.state_ != State::kNaN && a.value_ == b.value_;
  }
  friend constexpr s_bool operator!=(s_int_t a, s_int_t b) { return !(a == b); }
  friend constexpr s_bool operator<(s_int_t a, s_int_t b) { return (a <= b) && !(b <= a); }
  friend constexpr s_bool operator>(s_int_t a, s_int_t b) { return b < a; }

 private:
  using Unsigned = std::make_unsigned_t<T>;

  constexpr s_int_t(T value, State state) : value_(value), state_(state) {}

  constexpr s_int_t WithStateOf(s_int_t other, T value) const {
    if (state_ == State::kNaN || other.state_ == State::kNaN) return {0, State::kNaN};
    if (state_ == State::kInfinite || other.state_ == State::kInfinite) {
      return {0, State::kInfinite};
    }
    return value;
  }

  constexpr Unsigned Bits() const { return static_cast<Unsigned>(value_); }

  T value_ = 0;
  State state_ = State::kNumber;
};

template <std::integral T>
constinit const s_int_t<T> s_int_t<T>::NaN{0, State::kNaN};
template <std::integral T>
constinit const s_int_t<T> s_int_t<T>::INF{0, State::kInfinite};

}  // namespace Quarn

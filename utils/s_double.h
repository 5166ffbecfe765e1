// s_double_t<T> is an IEEE number whose comparisons give s_bool and which knows its class. Its
// special values are the IEEE ones; it carries no state of its own.
#pragma once

#include <cmath>
#include <limits>

#include "utils/s_int.h"

namespace Quarn {

template <std::floating_point T>
class s_double_t {
 public:
  // What kind of number it is.
  enum class Class { kFinite = 0, kPositiveInfinity = 1, kNegativeInfinity = 2, kNaN = 3 };

  // A quiet NaN.
  static constexpr s_double_t NaN() { return std::numeric_limits<T>::quiet_NaN(); }

  constexpr s_double_t() = default;
  // The plain number, in and out.
  constexpr s_double_t(T value) : value_(value) {}

  // The plain number.
  constexpr T Get() const { return value_; }

  // The class, and two questions about it.
  Class Classify() const {
    if (std::isnan(value_)) return Class::kNaN;
    if (std::isfinite(value_)) return Class::kFinite;
    return value_ > 0 ? Class::kPositiveInfinity : Class::kNegativeInfinity;
  }
  s_bool IsFinite() const { return Classify() == Class::kFinite; }
  s_bool IsNaN() const { return Classify() == Class::kNaN; }

  // The largest whole number not above the value.
  s_double_t Floor() const { return std::floor(value_); }

  // The nearest whole number, halves away from zero, modulo 2^32. NaN gives NaN; an infinity and
  // every negative value give INF, since an unsigned number has no place for them.
  s_uint ToUint() const {
    if (IsNaN()) return s_uint::NaN;
    if (!IsFinite() || !(value_ >= 0)) return s_uint::INF;
    constexpr double kWords = 4294967296.0;
    const double rounded = std::round(static_cast<double>(value_));
    return static_cast<unsigned int>(std::fmod(rounded, kWords));
  }

  // The arithmetic of IEEE numbers.
  constexpr s_double_t operator-() const { return -value_; }
  friend constexpr s_double_t operator+(s_double_t a, s_double_t b) { return a.value_ + b.value_; }
  friend constexpr s_double_t operator-(s_double_t a, s_double_t b) { return a.value_ - b.value_; }
  friend constexpr s_double_t operator*(s_double_t a, s_double_t b) { return a.value_ * b.value_; }
  friend constexpr s_double_t operator/(s_double_t a, s_double_t b) { return a.value_ / b.value_; }
  constexpr s_double_t& operator+=(s_double_t other) { return *this = *this + other; }
  constexpr s_double_t& operator-=(s_double_t other) { return *this = *this - other; }
  constexpr s_double_t& operator*=(s_double_t other) { return *this = *this * other; }
  constexpr s_double_t& operator/=(s_double_t other) { return *this = *this / other; }

  // False with a NaN on either side, but for !=, which is then true.
  friend constexpr s_bool operator<(s_double_t a, s_double_t b) { return a.value_ < b.value_; }
  friend constexpr s_bool operator<=(s_double_t a, s_double_t b) { return a.value_ <= b.value_; }
  friend constexpr s_bool operator>(s_double_t a, s_double_t b) { return a.value_ > b.value_; }
  friend constexpr s_bool operator>=(s_double_t a, s_double_t b) { return a.value_ >= b.value_; }
  friend constexpr s_bool operator==(s_double_t a, s_double_t b) { return a.value_ == b.value_; }
  friend constexpr s_bool operator!=(s_double_t a, s_double_t b) { return a.value_ != b.value_; }

 private:
  T value_ = 0;
};

}  // namespace Quarn

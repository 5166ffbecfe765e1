// s_double_t<T> is an IEEE number whose comparisons return s_bool. Its special values are the IEEE
// ones; it has no state of its own.
#pragma once

#include <cmath>
#include <limits>

#include "s_int.h"

namespace Quarn {

template <std::floating_point T>
class s_double_t {
 public:
  enum class Class { kFinite = 0, kPositiveInfinity = 1, kNegativeInfinity = 2, kNaN = 3 };

  static constexpr s_double_t NaN() { return std::numeric_limits<T>::quiet_NaN(); }

  constexpr s_double_t() = default;
  constexpr s_double_t(T value) : value_(value) {}

  constexpr T Get() const { return value_; }

  Class Classify() const {
    if (std::isnan(value_)) return Class::kNaN;
    if (std::isfinite(value_)) return Class::kFinite;
    return value_ > 0 ? Class::kPositiveInfinity : Class::kNegativeInfinity;
  }
  s_bool IsFinite() const { return Classify() == Class::kFinite; }
  s_bool IsNaN() const { return Classify() == Class::kNaN; }

  s_double_t Floor() const { return std::floor(value_); }

  // Rounds halves away from zero, modulo 2^32. NaN gives NaN; infinities and negative values, which
  // are out of range, give INF.
  s_uint ToUint() const {
    if (IsNaN()) return s_uint::NaN;
    if (!IsFinite() || !(value_ >= 0)) return s_uint::INF;
    constexpr double kModulus = 4294967296.0;
    const double rounded = std::round(static_cast<double>(value_));
    return static_cast<unsigned int>(std::fmod(rounded, kModulus));
  }

  constexpr s_double_t operator-() const { return -value_; }
  friend constexpr s_double_t operator+(s_double_t a, s_double_t b) { return a.value_ + b.value_; }
  friend constexpr s_double_t operator-(s_double_t a, s_double_t b) { return a.value_ - b.value_; }
  friend constexpr s_double_t operator*(s_double_t a, s_double_t b) { return a.value_ * b.value_; }
  friend constexpr s_double_t operator/(s_double_t a, s_double_t b) { return a.value_ / b.value_; }
  constexpr s_double_t& operator+=(s_double_t other) { return *this = *this + other; }
  constexpr s_double_t& operator-=(s_double_t other) { return *this = *this - other; }
  constexpr s_double_t& operator*=(s_double_t other) { return *this = *this * other; }
  constexpr s_double_t& operator/=(s_double_t other) { return *this = *this / other; }

  // With a NaN, all are false but !=.
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

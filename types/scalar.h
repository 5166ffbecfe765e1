// Scalar is a real number in double precision. It divides by zero and overflows as IEEE numbers do,
// without an error: inf+, inf- and nan are values like others.
//   s_refptr<Symbol> half(new Scalar("x", 0.5));  // shows as "x = 0.5"
#pragma once

#include "../interpreter/number.h"
#include "../utils/api.h"
#include "../utils/s_double.h"

namespace Quarn {

class State;

class MIRLOW_API Scalar final : public Number {
 public:
  // The name of the type, and what adds it to a State, which does it itself.
  static constexpr char kType[] = "Scalar";
  static void Register(State& state);

  // Without a number, it is NaN.
  explicit Scalar(const s_str& name) : Scalar(name, s_double::NaN()) {}
  Scalar(const s_str& name, s_double value) : Number(name, value.Get()) {}
  explicit Scalar(s_double value) : Number(value.Get()) {}  // a temporary

  s_double GetValue() const { return number_; }

  s_str ToString() const override;
  s_str GetType() const override { return kType; }
  s_refptr<Symbol> Clone() const override { return s_refptr<Symbol>(new Scalar(*this)); }
  void Write(TextWriter& out) const override;
};

}  // namespace Quarn

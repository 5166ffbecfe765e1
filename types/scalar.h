// Scalar is a real number in double precision. It divides by zero and overflows as IEEE numbers do,
// without an error: inf+, inf- and nan are values like others.
//   s_refptr<Symbol> half(new Scalar("x", 0.5));  // shows as "x = 0.5"
#pragma once

#include "interpreter/symbol.h"
#include "utils/s_double.h"

namespace Quarn {

class State;

class Scalar final : public Symbol {
 public:
  // The name of the type, and what adds it to a State, which does it itself.
  static constexpr char kType[] = "Scalar";
  static void Register(State& state);

  // Without a number, it is NaN.
  explicit Scalar(const s_str& name) : Scalar(name, s_double::NaN()) {}
  Scalar(const s_str& name, s_double value) : Symbol(name, FixedType(kType)), value_(value) {}
  explicit Scalar(s_double value) : Symbol(FixedType(kType)), value_(value) {}  // a temporary

  // The number.
  s_double GetValue() const { return value_; }
  // Makes a new temporary of an object that nobody else holds.
  void BecomeTemporary(s_double value) {
    ClearNames();
    value_ = value;
  }

  s_str ToString() const override;
  s_str GetType() const override { return kType; }
  s_refptr<Symbol> Clone() const override { return s_refptr<Symbol>(new Scalar(*this)); }
  void AppendTo(s_str& text) const override;

 private:
  Scalar(const Scalar& other) : Symbol(other, FixedType(kType)), value_(other.value_) {}

  s_double value_;
};

}  // namespace Quarn

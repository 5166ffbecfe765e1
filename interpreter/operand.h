// Operand is a value on its way through an evaluation: a plain number, or any other value by
// pointer. A number becomes an object only where somebody may look at it.
//   Operand half(0.5);
//   s_refptr<Symbol> value = half.Box();  // an unnamed Scalar
#pragma once

#include <utility>

#include "builtins.h"
#include "number.h"

namespace Quarn {

class Operand {
 public:
  Operand() = default;  // the number 0
  explicit Operand(double number) : number_(number) {}
  // Takes the number out of a temporary. A named value stays an object, for the sake of its name.
  // REQUIRES: not null.
  explicit Operand(s_refptr<Symbol> value) {
    if (value->GetKind() == Symbol::Kind::kNumber && value->GetName().IsEmpty()) {
      number_ = static_cast<const Number&>(*value).number_;
    } else {
      value_ = std::move(value);
    }
  }
  // The number of a symbol, or a clone of it without its name.
  static Operand CopyOf(const Symbol& symbol) {
    if (symbol.GetKind() == Symbol::Kind::kNumber) {
      return Operand(static_cast<const Number&>(symbol).number_);
    }
    Operand copy;
    copy.value_ = symbol.Clone();
    copy.value_->SetName(Symbol::NoName());
    return copy;
  }

  bool IsNumber() const { return value_.Get() == nullptr; }
  bool IsReference() const { return !IsNumber() && value_->GetKind() == Symbol::Kind::kReference; }

  bool IsList() const { return !IsNumber() && value_->GetKind() == Symbol::Kind::kList; }

  // REQUIRES, for these two: it is a number; it is none.
  double GetNumber() const { return number_; }
  const s_refptr<Symbol>& GetValue() const { return value_; }
  // Keeps the object itself, even if it is a number.
  void SetObject(s_refptr<Symbol> value) { value_ = std::move(value); }
  // REQUIRES: it is a number, and stays one.
  void SetNumber(double number) { number_ = number; }

  // As an object, new if it was a number.
  s_refptr<Symbol> Box() const {
    return IsNumber() ? NewNumber(Symbol::NoName(), number_) : value_;
  }
  s_refptr<Symbol> Take() {
    return IsNumber() ? NewNumber(Symbol::NoName(), number_) : std::move(value_);
  }

  // As of the object.
  s_str GetType() const { return IsNumber() ? s_str(kNumberType) : value_->GetType(); }
  s_str GetFullType() const { return IsNumber() ? s_str(kNumberType) : value_->GetFullType(); }

 private:
  double number_ = 0;
  s_refptr<Symbol> value_;
};

}  // namespace Quarn

// Number is what the interpreter knows of a number: enough to take it out of its object and to put
// it back. Scalar is the one class that derives from it.
#pragma once

#include "../utils/api.h"
#include "symbol.h"

namespace Quarn {

class MIRLOW_API Number : public Symbol {
 private:
  friend class Scalar;
  friend class Operand;

  Number(const s_str& name, double value) : Symbol(name, Kind::kNumber), number_(value) {}
  explicit Number(double value) : Symbol(Kind::kNumber), number_(value) {}
  Number(const Number& other) : Symbol(other, Kind::kNumber), number_(other.number_) {}

  double number_;
};

}  // namespace Quarn

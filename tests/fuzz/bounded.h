// The two operators that may never return, bounded: registered over the originals, as any type may,
// so that a target never has to kill what it tries.
//   Vector::Register(state);
//   RegisterBounded(state);  // now !0 and <1>[1/0] are errors like others
#pragma once

#include <cmath>

#include "interpreter/messages.h"
#include "interpreter/state.h"
#include "types/lift.h"
#include "types/scalar_math.h"
#include "types/vector.h"
#include "types/vector_math.h"

namespace Quarn::fuzz {

inline constexpr char kEndless[] = "\tError : Never ends";

// Does the recursion come near 1 before it has used up much of the stack?
inline bool FactorialEnds(double x) {
  constexpr int kSteps = 5000;
  for (int i = 0; i < kSteps; ++i, x -= 1) {
    if (std::fabs(x - 1) < 0.1) return true;
  }
  return false;
}

inline s_refptr<Symbol> BoundedFactorial(State&, const s_refptr<Symbol>& operand, s_str& error) {
  const double x = NumberOf(*operand);
  if (FactorialEnds(x)) return NewNumber(Factorial(x));
  AddError(error, kEndless);
  return {};
}

inline s_refptr<Symbol> BoundedIndex(State& state, const s_refptr<Symbol>& vector,
                                     const s_refptr<Symbol>& index, s_str& error) {
  const s_bool is_empty = static_cast<const Vector&>(*vector).GetElements().IsEmpty();
  if (is_empty || !std::isinf(NumberOf(*index))) {
    return SelectElement(state, vector, index, error);
  }
  AddError(error, kEndless);
  return {};
}

inline void RegisterBounded(State& state) {
  state.AddRightUnary({
      {"!", "Scalar", On(state, BoundedFactorial)}
  });
  state.AddBinary({
      {"Vector", "[]", "Scalar", On(state, BoundedIndex)}
  });
}

}  // namespace Quarn::fuzz

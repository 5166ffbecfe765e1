// Adapters from plain functions to the callables of the registries, so that a type's table names
// functions and its arithmetic can be read and tested without a State.
//   {"Scalar", "*", "Scalar", Binary(std::multiplies<double>())}
// What is lifted gets values of the types of its row, as the registries promise.
#pragma once

#include <type_traits>
#include <utility>

#include "interpreter/registry.h"
#include "types/scalar.h"

namespace Quarn {

// REQUIRES: the value is a Scalar.
inline double NumberOf(const Symbol& value) {
  return static_cast<const Scalar&>(value).GetValue().Get();
}

// A new unnamed Scalar.
inline s_refptr<Symbol> NewNumber(double value) { return s_refptr<Symbol>(new Scalar(value)); }

// Puts a number in the place of one that is used up: a Scalar that nobody else holds, as those
// within an expression are, is made over instead of being thrown away.
inline void Renew(s_refptr<Symbol>& operand, double value) {
  if (operand.GetCount() != 1U) {
    operand = NewNumber(value);
  } else {
    static_cast<Scalar&>(*operand).BecomeTemporary(value);
  }
}

// Operators on numbers; `f` takes and returns double.
template <class F>
UnaryOperator Unary(F f) {
  return [f](s_refptr<Symbol>&& operand, s_str&) {
    Renew(operand, f(NumberOf(*operand)));
    return std::move(operand);
  };
}
template <class F>
BinaryOperator Binary(F f) {
  if constexpr (std::is_empty_v<F> && std::is_default_constructible_v<F>) {
    return InPlaceOperator{[](s_refptr<Symbol>& left, const s_refptr<Symbol>& right) {
      Renew(left, F()(NumberOf(*left), NumberOf(*right)));
    }};
  } else {
    return [f](s_refptr<Symbol>&& left, s_refptr<Symbol>&& right, s_str&) {
      Renew(left, f(NumberOf(*left), NumberOf(*right)));
      return std::move(left);
    };
  }
}

// The unary operator that gives a copy of its operand, name included.
inline s_refptr<Symbol> Copy(s_refptr<Symbol> operand, s_str&) { return operand->Clone(); }

// Functions of as many numbers as `f` takes.
template <class... Numbers>
Function OfNumbers(double (*f)(Numbers...)) {
  return [f]<std::size_t... Index>(std::index_sequence<Index...>)->Function {
    return [f](State&, [[maybe_unused]] const Values& arguments, Values& results, s_str&) {
      results.PushBack(NewNumber(f(NumberOf(*arguments[static_cast<unsigned int>(Index)])...)));
      return s_bool(true);
    };
  }
  (std::index_sequence_for<Numbers...>());
}

// Operators that need the State, bound to it; the State outlives its registries.
inline UnaryOperator On(State& state,
                        s_refptr<Symbol> (*f)(State&, const s_refptr<Symbol>& operand, s_str&)) {
  return [&state, f](s_refptr<Symbol>&& operand, s_str& error) { return f(state, operand, error); };
}
inline BinaryOperator On(State& state,
                         s_refptr<Symbol> (*f)(State&, const s_refptr<Symbol>& left,
                                               const s_refptr<Symbol>& right, s_str&)) {
  return [&state, f](s_refptr<Symbol>&& left, s_refptr<Symbol>&& right, s_str& error) {
    return f(state, left, right, error);
  };
}

}  // namespace Quarn

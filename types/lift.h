// Adapters from plain functions to the callables and rows of the registries, so that a type's table
// names functions and its arithmetic can be read and tested without a State.
//   OnNumbers("*", std::multiplies<double>())
// What is lifted gets values of the types of its row, as the registries promise.
#pragma once

#include <type_traits>
#include <utility>

#include "interpreter/builtins.h"
#include "interpreter/registry.h"
#include "types/scalar.h"

namespace Quarn {

// REQUIRES: the value is a Scalar.
inline double NumberOf(const Symbol& value) {
  return static_cast<const Scalar&>(value).GetValue().Get();
}

// A new unnamed Scalar.
inline s_refptr<Symbol> NewNumber(double value) { return NewNumber(Symbol::NoName(), value); }

// Operators on numbers; `f` takes and returns double.
template <class F>
UnaryOperator Unary(F f) {
  return [f](const s_refptr<Symbol>& operand, s_str&) { return NewNumber(f(NumberOf(*operand))); };
}
template <class F>
BinaryOperator Binary(F f) {
  return [f](const s_refptr<Symbol>& left, const s_refptr<Symbol>& right, s_str&) {
    return NewNumber(f(NumberOf(*left), NumberOf(*right)));
  };
}

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

// Rows for pure operators and functions of Scalars, which then are called on plain numbers.
inline UnaryRow UnaryOnScalars(const char* op, UnaryOnNumbers f) {
  return {op, Scalar::kType, Unary(f), f};
}
inline BinaryRow OnScalars(const char* op, BinaryOnNumbers f) {
  return {Scalar::kType, op, Scalar::kType, Binary(f), f};
}
inline FunctionRow OnScalars(const char* name, double (*f)(), Purity purity) {
  return {name, {""}, OfNumbers(f), {.of_none = f}, purity};
}
inline FunctionRow OnScalars(const char* name, double (*f)(double), Purity purity) {
  return {name, {Scalar::kType}, OfNumbers(f), {.of_one = f}, purity};
}
inline FunctionRow OnScalars(const char* name, double (*f)(double, double), Purity purity) {
  return {
      name, {Scalar::kType, Scalar::kType},
       OfNumbers(f), {.of_two = f            },
       purity
  };
}

// The unary operator that gives a copy of its operand, name included.
inline s_refptr<Symbol> Copy(s_refptr<Symbol> operand, s_str&) { return operand->Clone(); }

// Operators that need the State, bound to it; the State outlives its registries.
inline UnaryOperator On(State& state,
                        s_refptr<Symbol> (*f)(State&, const s_refptr<Symbol>& operand, s_str&)) {
  return [&state, f](const s_refptr<Symbol>& operand, s_str& error) {
    return f(state, operand, error);
  };
}
inline BinaryOperator On(State& state,
                         s_refptr<Symbol> (*f)(State&, const s_refptr<Symbol>& left,
                                               const s_refptr<Symbol>& right, s_str&)) {
  return [&state, f](const s_refptr<Symbol>& left, const s_refptr<Symbol>& right, s_str& error) {
    return f(state, left, right, error);
  };
}

}  // namespace Quarn

// The arithmetic that everybody knows. Where an operator on numbers is registered as one of these
// functions, prepared expressions need not call it.
#pragma once

namespace Quarn {

inline double Negate(double operand) { return -operand; }
inline double Add(double left, double right) { return left + right; }
inline double Subtract(double left, double right) { return left - right; }
inline double Multiply(double left, double right) { return left * right; }
inline double Divide(double left, double right) { return left / right; }

}  // namespace Quarn

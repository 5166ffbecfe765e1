// Plain arithmetic on doubles. Prepared expressions inline an operator that is registered as one of
// these functions.
#pragma once

namespace Quarn {

inline double Negate(double operand) { return -operand; }
inline double Add(double left, double right) { return left + right; }
inline double Subtract(double left, double right) { return left - right; }
inline double Multiply(double left, double right) { return left * right; }
inline double Divide(double left, double right) { return left / right; }

}  // namespace Quarn

// The arithmetic of Scalar beyond the operators of C++, on plain numbers.
#pragma once

#include <cmath>

namespace Quarn {

// round(x) * factorial(x - 1), down to the first x within 0.1 of 1, which gives 1: 3.95 gives
// 4 * 3 * 2 * 1. Plain recursion.
// Kept on purpose: there is no other end. For an x that never comes within 0.1 of 1 (0, 2.5,
// negative numbers, NaN, infinity) it recurses until the stack is used up and the process dies.
double Factorial(double x);
// Will the recursion surely end, and soon? Is there an end at all?
bool IsFactorialShort(double x);
bool HasFactorial(double x);

// The smaller and the greater of two; the second when they are equal, the first when one is NaN.
double Min(double first, double second);
double Max(double first, double second);

// The nearest whole number, halves away from zero; the smallest not below; the largest not above.
inline double Round(double x) { return std::round(x); }
inline double RoundUp(double x) { return std::ceil(x); }
inline double RoundDown(double x) { return std::floor(x); }

// A random number from `low` to `high`, both of which can come up; `low` when it is above `high`;
// NaN when a bound is not finite. Draws from the C library's rand, once, and only if it needs to.
// Nothing seeds that, so every run of the program draws the same numbers.
double RandBetween(double low, double high);
double RandUnit();  // from 0 to 1

}  // namespace Quarn

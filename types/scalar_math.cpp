#include "types/scalar_math.h"

#include <cstdlib>
#include <limits>

namespace Quarn {
namespace {

bool IsNearOne(double x) { return std::fabs(x - 1) < 0.1; }

}  // namespace

double Factorial(double x) {
  if (IsNearOne(x)) return 1;
  // Volatile, so that no optimiser makes a loop or a value of a recursion that must use up the
  // stack.
  const volatile double rest = Factorial(x - 1);
  return std::round(x) * rest;
}

bool IsFactorialShort(double x) {
  constexpr double kShort = 1000;
  return x > 0.9 && x < kShort && std::fabs(x - std::round(x)) < 0.099;
}

bool HasFactorial(double x) {
  constexpr double kWhole = 9007199254740992;  // 2^53: what is smaller loses nothing with a 1
  return x > 0.9 && x < kWhole && IsNearOne(x - (std::round(x) - 1));
}

double Min(double first, double second) { return first >= second ? second : first; }

double Max(double first, double second) { return second >= first ? second : first; }

double RandBetween(double low, double high) {
  if (!std::isfinite(low) || !std::isfinite(high)) return std::numeric_limits<double>::quiet_NaN();
  if (low > high) return low;
  constexpr double kLargest = 2147483647.0;
  return low + std::rand() / kLargest * (high - low);
}

double RandUnit() { return RandBetween(0, 1); }

}  // namespace Quarn

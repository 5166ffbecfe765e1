// The integral of a formula in x that a stranger typed, by the midpoint rule.
//   integral "4/(1+x*x)" 0 1      3.14159...
#include <cstdlib>
#include <iostream>
#include <sstream>

#include "interpreter/state.h"
#include "types/vector.h"

namespace {

// What a stranger's formula may use.
Quarn::Limits MakeLimits() {
  Quarn::Limits limits;
  limits.steps = 1'000'000;
  limits.memory = 64 << 20;
  limits.output = 1 << 20;
  limits.nesting = 10'000;
  limits.ends_the_endless = true;
  return limits;
}

}  // namespace

int main(int count, char** values) {
  if (count != 4) {
    std::cerr << "usage: integral FORMULA FROM TO\n";
    return 2;
  }
  const double from = std::atof(values[2]);
  const double to = std::atof(values[3]);
  constexpr int kStripes = 1000;
  std::ostringstream nobody_reads;
  std::istringstream nobody_types;
  Quarn::State state(nobody_reads, nobody_types);
  Quarn::Vector::Register(state);
  state.SetLimits(MakeLimits());

  Quarn::Variable x = state.GetVariable("x");
  Quarn::Expression formula = state.Prepare(values[1]);
  double sum = 0;
  for (int i = 0; i < kStripes; ++i) {
    x.Set(from + (i + 0.5) * (to - from) / kStripes);
    const std::optional<double> y = formula.EvaluateNumber();
    if (!y) {
      const std::string error = formula.Evaluate().error;
      std::cerr << (error.empty() ? "the formula gives no number" : error) << '\n';
      return 1;
    }
    sum += *y;
  }
  std::cout << sum * (to - from) / kStripes << '\n';
  return 0;
}

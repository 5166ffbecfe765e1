// The integral of a formula in x that a stranger typed, by the midpoint rule.
//   integral "4/(1+x*x)" 0 1      3.14159...
#include <mirlow/state.h>
#include <mirlow/vector.h>

#include <cstdlib>
#include <iostream>
#include <sstream>

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
  Quarn::Result otherwise;
  double sum = 0;
  for (int i = 0; i < kStripes; ++i) {
    x.Set(from + (i + 0.5) * (to - from) / kStripes);
    const std::optional<double> y = formula.EvaluateNumber(otherwise);
    if (!y) {
      std::cerr << (otherwise ? "the formula gives no number" : otherwise.error) << '\n';
      return 1;
    }
    sum += *y;
  }
  std::cout << sum * (to - from) / kStripes << '\n';
  return 0;
}

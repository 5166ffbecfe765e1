// The loop of a host: a formula that was read once, a million times with a changing x; in turns
// with muParser, best of seven.
//   prepared
#include <muParser.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <sstream>

#include "interpreter/state.h"

namespace {

constexpr char kFormula[] = "a*x*x+b*x+c";
constexpr int kTimes = 1'000'000;

// Nanoseconds of one evaluation.
template <class F>
double Measure(F f) {
  const auto begin = std::chrono::steady_clock::now();
  for (int i = 0; i < kTimes; ++i) f(i);
  const std::chrono::duration<double, std::nano> took = std::chrono::steady_clock::now() - begin;
  return took.count() / kTimes;
}

}  // namespace

int main() {
  double a = 1, b = 2, c = 3, theirs_x = 0, ours_sum = 0, theirs_sum = 0;
  mu::Parser parser;
  parser.DefineVar("a", &a);
  parser.DefineVar("b", &b);
  parser.DefineVar("c", &c);
  parser.DefineVar("x", &theirs_x);
  parser.SetExpr(kFormula);

  std::ostringstream out;
  std::istringstream in;
  Quarn::State state(out, in);
  state.ProcessLine("a=1;b=2;c=3");
  Quarn::Variable x = state.GetVariable("x");
  Quarn::Expression formula = state.Prepare(kFormula);

  double ours = 1e9, theirs = 1e9;
  for (int round = 0; round < 7; ++round) {
    theirs = std::min(theirs, Measure([&](int i) {
                        theirs_x = i;
                        theirs_sum += parser.Eval();
                      }));
    ours = std::min(ours, Measure([&](int i) {
                      x.Set(i);
                      ours_sum += formula.EvaluateNumber().value_or(0);
                    }));
  }
  std::printf("mirlow %.1f ns, muParser %.1f ns: ratio %.2f\n", ours, theirs, ours / theirs);
  return ours_sum == theirs_sum ? 0 : 1;
}

// A program that computes with text from its user: the values of a formula in x, one per line.
//   table "x*x-1" 0 4
#include <mirlow/lift.h>
#include <mirlow/state.h>
#include <mirlow/value.h>
#include <mirlow/vector.h>

#include <cstdlib>
#include <iostream>
#include <sstream>

namespace {

// The user's formula for one x: the text of its value, or what the user should read instead.
std::string Compute(Quarn::State& state, const std::string& formula, double x, bool& good) {
  state.SetSymbol("x", Quarn::FromNumber(x));
  const Quarn::Result result = state.Compute(formula);
  good = static_cast<bool>(result);
  return good ? Quarn::ToText(result.value) : result.error;
}

// "clamp" takes a number into the interval from 0 to a limit.
double Clamp(double x, double limit) { return x < 0 ? 0 : x > limit ? limit : x; }

// "mean" of the numbers in a vector.
Quarn::s_bool Mean(Quarn::State&, const Quarn::Values& arguments, Quarn::Values& results,
                   Quarn::s_str& error) {
  const auto numbers = Quarn::ToNumbers(arguments[0]);
  if (!numbers || numbers->empty()) {
    Quarn::AddError(error, "\tError : No numbers in it");
    return false;
  }
  double sum = 0;
  for (const double number : *numbers) sum += number;
  results.PushBack(Quarn::FromNumber(sum / static_cast<double>(numbers->size())));
  return true;
}

}  // namespace

int main(int count, char** values) {
  if (count != 4) {
    std::cerr << "usage: table FORMULA FIRST LAST\n";
    return 2;
  }
  std::ostringstream nobody_reads;
  std::istringstream nobody_types;
  Quarn::State state(nobody_reads, nobody_types);
  Quarn::Vector::Register(state);
  state.AddFunctions({
      {"clamp", {"Scalar", "Scalar"}, Quarn::OfNumbers(Clamp)},
      {"mean",  {"Vector"},           Mean                   },
  });

  for (double x = std::atof(values[2]); x <= std::atof(values[3]); ++x) {
    bool good = false;
    const std::string text = Compute(state, values[1], x, good);
    (good ? std::cout : std::cerr) << text << '\n';
    if (!good) return 1;
  }
  return 0;
}

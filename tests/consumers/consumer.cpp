// The host that every project of this folder builds: computes with numbers and a vector, and hears
// of an error.
#include <cstdio>
#include <sstream>

#include "interpreter/state.h"
#include "interpreter/version.h"
#include "types/value.h"
#include "types/vector.h"

int main() {
  std::ostringstream out;
  std::istringstream in;
  Quarn::State state(out, in);
  Quarn::Vector::Register(state);
  state.SetSymbol("v", Quarn::FromNumbers({1, 2, 3}));
  const auto doubled = Quarn::ToNumbers(state.Compute("2*v").value);
  const auto element = Quarn::ToNumber(state.Compute("v[1]-v[0]").value);
  const std::string error = state.Compute("v/0").error;
  if (doubled != std::vector<double>{2, 4, 6} || element != 1 || error.empty()) return 1;
  state.ProcessLine("v");
  if (out.str() != "\tVector : <1, 2, 3>\n") return 1;
  std::printf("mirlow %s\n", Quarn::kVersion);
  return 0;
}

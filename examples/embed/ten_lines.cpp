// The smallest host: a value in, a value out, or what went wrong.
#include <mirlow/state.h>
#include <mirlow/value.h>

#include <iostream>

int main() {
  Quarn::State state;
  state.SetSymbol("x", Quarn::FromNumber(3));
  const Quarn::Result result = state.Compute("2*x+1");
  std::cout << (result ? Quarn::ToText(result.value) : result.error) << '\n';  // 7
}

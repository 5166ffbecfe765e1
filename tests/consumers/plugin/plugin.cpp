// What the loader finds by name: the number that an expression comes to, or -1.
#include <mirlow/state.h>
#include <mirlow/value.h>

extern "C" double Evaluate(const char* expression);

extern "C" double Evaluate(const char* expression) {
  Quarn::State state;
  return Quarn::ToNumber(state.Compute(expression).value).value_or(-1);
}

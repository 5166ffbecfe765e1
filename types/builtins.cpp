// The types that every State registers for itself.
#include "interpreter/builtins.h"

#include "types/reference.h"
#include "types/scalar.h"

namespace Quarn {

void RegisterBuiltins(State& state) {
  Reference::Register(state);
  Scalar::Register(state);
}

}  // namespace Quarn

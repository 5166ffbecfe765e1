// Handles of the interface in C that free themselves.
//   const Ptr<mirlow_state> state(mirlow_new());
#pragma once

#include <mirlow/mirlow.h>

#include <memory>

namespace Quarn {

struct Free {
  void operator()(mirlow_state* state) const { mirlow_free(state); }
  void operator()(mirlow_value* value) const { mirlow_release(value); }
  void operator()(mirlow_expression* expression) const { mirlow_free_expression(expression); }
  void operator()(mirlow_variable* variable) const { mirlow_free_variable(variable); }
};
template <class Handle>
using Ptr = std::unique_ptr<Handle, Free>;

}  // namespace Quarn

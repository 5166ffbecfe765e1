// Core is what a State consists of, in order of construction.
#pragma once

#include "interpreter/commands.h"
#include "interpreter/machine.h"
#include "interpreter/registries.h"
#include "interpreter/symbol_table.h"

namespace Quarn {

struct Core {
  Core(State& state, std::ostream& out, std::istream& in)
      : machine(state, registries, symbols), commands(*this, out, in) {}

  Registries registries;
  SymbolTable symbols;
  Machine machine;
  Commands commands;
};

}  // namespace Quarn

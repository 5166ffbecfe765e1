#include "interpreter/program.h"

#include "interpreter/symbol_table.h"

namespace Quarn {

void Program::ReleaseInstructions(SymbolTable& names) {
  for (const Instruction& instruction : code) {
    if (instruction.code == Code::kCell) CellPtr::Attach(instruction.cell);
    if (instruction.code != Code::kName && instruction.code != Code::kBinaryName) continue;
    names.Release(*instruction.name);
  }
  Clear();
}

}  // namespace Quarn

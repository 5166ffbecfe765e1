#include "interpreter/program.h"

#include "interpreter/symbol_table.h"

namespace Quarn {

void Program::Release(SymbolTable& names) {
  for (const Instruction& instruction : code) {
    if (instruction.code == Code::kCell) CellPtr::Attach(instruction.cell);
    if (instruction.code != Code::kName && instruction.code != Code::kBinaryName) continue;
    names.Release(*instruction.name);
  }
  Clear();
}

void Program::Clear() {
  code.clear();
  root = Root::kOperation;
  if (!extra) return;
  extra->types.clear();
  extra->message.Clear();
}

}  // namespace Quarn

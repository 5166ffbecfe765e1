// What the interpreter needs from the types above it. It is declared here, where State and Symbol
// are only names, and defined in types/builtins.cpp: no include points up, and the linker finds the
// one upward call.
#pragma once

#include "../utils/api.h"
#include "../utils/s_refptr.h"

namespace Quarn {

class CellPtr;
class State;
class Symbol;

// The types that the interpreter knows by name, beside "Symbol": that of numbers, and the one that
// a reference answers when it has no value.
inline constexpr char kNumberType[] = "Scalar";
inline constexpr char kReferenceType[] = "Reference";

// Registers the types that every State has: Reference, then Scalar.
void RegisterBuiltins(State& state);

// A number as an object.
MIRLOW_API s_refptr<Symbol> NewNumber(const s_str& name, double number);

// A reference of that name to the expression of a cell; without one it is a null reference.
s_refptr<Symbol> NewReference(const s_str& name, CellPtr cell);
// The cell of a reference; null for a null reference. REQUIRES: the kind of the value is
// kReference.
const CellPtr& GetCell(const Symbol& reference);

}  // namespace Quarn

// What the interpreter needs from the types above it. It is declared here, where State and Symbol
// are only names, and defined in types/builtins.cpp: no include points up, and the
// linker finds the one upward call.
#pragma once

#include <string_view>

#include "utils/s_refptr.h"

namespace Quarn {

class State;
class Symbol;

// The type that a reference answers when it has no value; the one type, beside "Symbol", that the
// interpreter knows by name.
inline constexpr char kReferenceType[] = "Reference";

// Registers the types that every State has: Reference, then Scalar.
void RegisterBuiltins(State& state);

// A reference of that name to an expression; an empty expression makes it a null reference.
s_refptr<Symbol> NewReference(State& state, const s_str& name, std::string_view expression);

// What stands for an operand or argument: the value of a reference's expression, followed through
// further references; any other value itself. Null for a null reference; a new null reference when
// the expression fails.
s_refptr<Symbol> Resolve(const s_refptr<Symbol>& value);

}  // namespace Quarn

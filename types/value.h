// Values as plain C++, in both directions, so that a host needs neither the classes of the values
// nor a cast. A reference counts as what its expression comes to at the moment.
//   ToNumber(state.Compute("1+2").value);          // 3
//   ToNumber(state.Compute("<1, 2>").value);       // nothing: it is no number
//   state.SetSymbol("v", FromNumbers({1, 2, 3}));  // v=<1, 2, 3>
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "../interpreter/embedding.h"
#include "../interpreter/symbol.h"
#include "../utils/api.h"

namespace Quarn {

class State;

// The number that a Scalar is; nothing for null and for values of other types.
MIRLOW_API std::optional<double> ToNumber(const s_refptr<Symbol>& value);

// The elements of a Vector, shared with it; nothing for null and for values of other types.
MIRLOW_API std::optional<std::vector<s_refptr<Symbol>>> ToElements(const s_refptr<Symbol>& value);

// The numbers in a Vector; nothing for null, for values of other types, and when one of the
// elements is no number.
MIRLOW_API std::optional<std::vector<double>> ToNumbers(const s_refptr<Symbol>& value);

// The value as a user reads it, without its name: "<1, 2>". Empty for null.
MIRLOW_API std::string ToText(const s_refptr<Symbol>& value);

// The type under which operators and functions know the value: "Scalar". Empty for null.
MIRLOW_API std::string GetTypeName(const s_refptr<Symbol>& value);

// A new unnamed Scalar.
MIRLOW_API s_refptr<Symbol> FromNumber(double number);

// A new unnamed reference to the expression, which that State evaluates each time the value is
// asked for and something in it has changed. The State must outlive it.
MIRLOW_API s_refptr<Symbol> FromReference(State& state, std::string_view expression);

// What a reference comes to, followed through further references; without a value, why its
// expression failed. Any other value is its own result.
MIRLOW_API Result EvaluateReference(const s_refptr<Symbol>& value);
// The same for what came of a request, whose failure stays as it is: a value, or why there is none.
//   const Result total = EvaluateReference(state.Compute("2*r"));
MIRLOW_API Result EvaluateReference(const Result& result);

// A new unnamed Vector that shares the elements, or has copies without a name; null when one is
// null, and when a literal of these elements would be refused: they must be of one type, and not
// all be references.
MIRLOW_API s_refptr<Symbol> FromElements(const std::vector<s_refptr<Symbol>>& elements);

// A new unnamed Vector of Scalars.
MIRLOW_API s_refptr<Symbol> FromNumbers(const std::vector<double>& numbers);

}  // namespace Quarn

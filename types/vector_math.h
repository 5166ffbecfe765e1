// The arithmetic of Vector: element by element through the operators of the State, whatever the
// elements are. Each operation returns a new unnamed value; when one fails for an element, it stops
// there, and the message is the one of that element. Indices start at 0.
#pragma once

#include <optional>

#include "interpreter/operand.h"
#include "interpreter/registry.h"

namespace Quarn {

// A number with each element: "*" with the number on its side.
s_refptr<Symbol> ScaleFromLeft(State&, const s_refptr<Symbol>& scalar,
                               const s_refptr<Symbol>& vector, s_str& error);
s_refptr<Symbol> ScaleFromRight(State&, const s_refptr<Symbol>& vector,
                                const s_refptr<Symbol>& scalar, s_str& error);

// "+" and "-" of elements that stand at the same index. Fails when the lengths differ.
s_refptr<Symbol> AddElements(State&, const s_refptr<Symbol>& left, const s_refptr<Symbol>& right,
                             s_str& error);
s_refptr<Symbol> SubtractElements(State&, const s_refptr<Symbol>& left,
                                  const s_refptr<Symbol>& right, s_str& error);

// "-" of each element.
s_refptr<Symbol> NegateElements(State&, const s_refptr<Symbol>& vector, s_str& error);

// (a1 b2 - a2 b1, a2 b0 - a0 b2, a0 b1 - a1 b0). Fails unless both lengths are 3.
s_refptr<Symbol> CrossProduct(State&, const s_refptr<Symbol>& left, const s_refptr<Symbol>& right,
                              s_str& error);

// As below, without objects for numbers.
std::optional<Operand> SelectOperand(State&, const Operand& vector, const Operand& index,
                                     s_str& error);
// A copy of the element at the index, which is rounded, halves away from zero, and wraps at both
// ends: -1 is the last. NaN selects the first. Fails on a vector without elements.
// Kept on purpose: an infinite index never comes into range, so this never returns.
s_refptr<Symbol> SelectElement(State&, const s_refptr<Symbol>& vector,
                               const s_refptr<Symbol>& index, s_str& error);

}  // namespace Quarn

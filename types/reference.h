// Reference is a late-bound value: the text of an expression, evaluated anew on every use, so that
// it follows the symbols that it names, in value and in type. It keeps nothing of an evaluation,
// and an expression that fails makes no noise: the reference then shows its text. An empty
// expression makes a null reference, which shows as "null".
//   x=1;r&=x+1;x=5;r  // 6
// It evaluates in the State that made it, which owns every symbol table it may stand in.
#pragma once

#include "interpreter/builtins.h"
#include "interpreter/symbol.h"

namespace Quarn {

class Reference final : public Symbol {
 public:
  // The name of the type, and what adds it to a State, which does it itself.
  static constexpr const char* kType = kReferenceType;
  static void Register(State& state);

  explicit Reference(const s_str& name) : Symbol(name) {}  // null
  // To an expression, which that State evaluates.
  Reference(State& state, const s_str& name, std::string_view expression)
      : Symbol(name), expression_(expression), state_(&state) {}

  // Its text; null references have none.
  const s_str& GetExpression() const { return expression_; }
  bool IsNullReference() const { return expression_.IsEmpty() ? true : false; }

  // What the expression comes to, without a name; null when it fails. May be a reference itself.
  s_refptr<Symbol> Evaluate() const;
  // What stands for the reference as an operand; see Resolve in interpreter/builtins.h.
  s_refptr<Symbol> EvaluateThrough() const;
  // The value that is no reference any more; null, with a message added, where the way ends.
  s_refptr<Symbol> EvaluateThrough(s_str& error) const;

  s_str ToString() const override;
  // The type of the value; "Reference" when there is none.
  s_str GetType() const override;
  s_str GetDeclaredType() const override { return kType; }
  s_str GetFullType() const override { return kType; }
  s_refptr<Symbol> Clone() const override { return s_refptr<Symbol>(new Reference(*this)); }
  const Reference* AsReference() const override { return this; }

 private:
  s_str expression_;
  State* state_ = nullptr;  // not owned; null only with an empty expression
};

}  // namespace Quarn

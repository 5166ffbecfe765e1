// Reference is a late-bound value: an expression that is evaluated when it is used, so that it
// follows the symbols that it names, in value and in type. An expression that fails makes no noise:
// the reference then shows its text. An empty expression makes a null reference, which shows as
// "null".
//   x=1;r&=x+1;x=5;r  // 6
// It evaluates in the State that made it, which owns every symbol table it may stand in.
#pragma once

#include "interpreter/builtins.h"
#include "interpreter/cell.h"

namespace Quarn {

class Reference final : public Symbol {
 public:
  // The name of the type, and what adds it to a State, which does it itself.
  static constexpr const char* kType = kReferenceType;
  static void Register(State& state);

  explicit Reference(const s_str& name) : Reference(name, CellPtr()) {}  // null
  // To an expression, which that State evaluates; an empty one makes it a null reference.
  Reference(State& state, const s_str& name, std::string_view expression);
  Reference(const s_str& name, CellPtr cell)
      : Symbol(name, Kind::kReference), cell_(std::move(cell)) {}

  s_str GetExpression() const { return cell_ ? s_str(cell_->GetText()) : s_str(); }
  const CellPtr& GetCell() const { return cell_; }
  bool IsNullReference() const { return !cell_; }

  s_str ToString() const override;
  // The type of the value; "Reference" when there is none.
  s_str GetType() const override;
  s_str GetDeclaredType() const override { return kType; }
  s_str GetFullType() const override { return kType; }
  s_refptr<Symbol> Clone() const override { return s_refptr<Symbol>(new Reference(*this)); }
  void Write(TextWriter& out) const override;

 private:
  Reference(const Reference& other) : Symbol(other, Kind::kReference), cell_(other.cell_) {}

  CellPtr cell_;  // null for a null reference
};

}  // namespace Quarn

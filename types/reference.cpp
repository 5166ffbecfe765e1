#include "types/reference.h"

#include "interpreter/core.h"
#include "interpreter/state.h"
#include "interpreter/text_writer.h"
#include "utils/trim.h"

namespace Quarn {
namespace {

s_refptr<Symbol> Create(const s_str& name) { return s_refptr<Symbol>(new Reference(name)); }

s_bool IsLiteral(std::string_view text) { return text.starts_with('&'); }

// The expression is not looked at before it is used.
s_refptr<Symbol> CreateFrom(State& state, const s_str& name, const s_str& text, s_str&) {
  const std::string_view expression = TrimSpaces(text.GetView().substr(1));
  return s_refptr<Symbol>(new Reference(state, name, expression));
}

}  // namespace

Reference::Reference(State& state, const s_str& name, std::string_view expression)
    : Reference(name, state.GetCore().machine.GetCell(expression)) {}

void Reference::Register(State& state) {
  state.AddType({.name = kType,
                 .create = Create,
                 .is_literal = IsLiteral,
                 .create_from = CreateFrom,
                 .literal_starts = "&",
                 .keeps_expression = true});
}

s_str Reference::ToString() const { return WriteToText(*this); }

s_str Reference::GetType() const {
  if (!cell_) return kType;
  const Answer answer = cell_->Follow();
  if (answer.outcome != Outcome::kValue || answer.value.IsReference()) return kType;
  return answer.value.GetType();
}

void Reference::Write(TextWriter& out) const {
  if (cell_) out.AppendNameOf(*this);
  out.AppendReference(cell_);
}

}  // namespace Quarn

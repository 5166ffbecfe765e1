#include "types/reference.h"

#include "interpreter/messages.h"
#include "interpreter/state.h"
#include "utils/trim.h"

namespace Quarn {
namespace {

s_refptr<Symbol> Create(const s_str& name) { return s_refptr<Symbol>(new Reference(name)); }

s_bool IsLiteral(const s_str& text) { return text.StartsWith("&"); }

// The expression is not looked at before it is used.
s_refptr<Symbol> CreateFrom(State& state, const s_str& name, const s_str& text, s_str&) {
  return NewReference(state, name, TrimSpaces(text.GetView().substr(1)));
}

[[gnu::noinline]] s_refptr<Symbol> NewNull() {
  return s_refptr<Symbol>(new Reference(Symbol::NoName()));
}

}  // namespace

void Reference::Register(State& state) {
  state.AddType({kType, Create, IsLiteral, CreateFrom, nullptr, "&"});
}

s_refptr<Symbol> Reference::Evaluate() const {
  return state_->EvaluateSilently(expression_.GetView());
}

s_refptr<Symbol> Reference::EvaluateThrough() const {
  if (IsNullReference()) return {};
  const Depth::Level level(state_->GetDepth(), expression_.GetView().size());
  s_refptr<Symbol> value = Evaluate();
  if (!value) return NewNull();
  const Reference* next = value->AsReference();
  return next && !next->IsNullReference() ? next->EvaluateThrough() : value;
}

s_refptr<Symbol> Reference::EvaluateThrough(s_str& error) const {
  if (IsNullReference()) {
    AddError(error, messages::EmptySymbol());
    return {};
  }
  const Depth::Level level(state_->GetDepth(), expression_.GetView().size());
  s_refptr<Symbol> value = state_->EvaluateText(expression_.GetView(), NoName(), error);
  const Reference* next = value ? value->AsReference() : nullptr;
  if (next) value = next->EvaluateThrough(error);
  if (level.IsGranted()) return value;
  error = messages::NestedTooDeeply();
  return {};
}

s_str Reference::ToString() const {
  if (IsNullReference()) return "null";
  const Depth::Level level(state_->GetDepth(), expression_.GetView().size());
  const s_refptr<Symbol> value = Evaluate();
  s_str text = value ? value->ToString() : expression_;
  // A reference that leads back to itself has no value, wherever on the way that came to light.
  if (!level.IsGranted()) text = expression_;
  return GetName().IsEmpty() ? text : GetName() + " = " + text;
}

s_str Reference::GetType() const {
  if (IsNullReference()) return kType;
  const Depth::Level level(state_->GetDepth(), expression_.GetView().size());
  const s_refptr<Symbol> value = Evaluate();
  if (!value) return kType;
  s_str type = value->GetType();
  return level.IsGranted() ? type : s_str(kType);
}

s_refptr<Symbol> NewReference(State& state, const s_str& name, std::string_view expression) {
  return s_refptr<Symbol>(new Reference(state, name, expression));
}

s_refptr<Symbol> Resolve(const s_refptr<Symbol>& value) {
  const Reference* reference = value->AsReference();
  return reference ? reference->EvaluateThrough() : value;
}

}  // namespace Quarn

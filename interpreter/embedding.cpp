// What State does for a host program: the same as the command lines, but nothing is printed.
#include "interpreter/embedding.h"

#include "interpreter/messages.h"
#include "interpreter/state.h"

namespace Quarn {

Result State::Compute(std::string_view expression) {
  s_str error;
  s_refptr<Symbol> value = EvaluateText(expression, Symbol::NoName(), error);
  if (value) return {std::move(value), {}};
  // Inside an evaluation, the outermost one would have said so in the end.
  if (error.IsEmpty() && depth_.IsExhausted()) error = messages::NestedTooDeeply();
  return {{}, error.Take()};
}

s_refptr<Symbol> State::GetSymbol(std::string_view name) const {
  const s_refptr<Symbol>* symbol = symbols_.Find(name);
  return symbol ? *symbol : s_refptr<Symbol>();
}

Result State::SetSymbol(std::string_view name, const s_refptr<Symbol>& value) {
  s_str error;
  if (!CheckName(name, error)) return {{}, error.Take()};
  if (!IsWithinReach(name)) return {{}, messages::NameOutOfReach(name).Take()};
  if (!value) return {{}, messages::NoValueToSet(name).Take()};
  const s_str own_name(name);
  s_refptr<Symbol> symbol = value->Clone();
  symbol->SetName(own_name);
  symbols_.Set(own_name, symbol);
  return {std::move(symbol), {}};
}

// Nothing asks for the empty name, and a literal is taken for one before it is looked up.
bool State::IsWithinReach(std::string_view name) const {
  if (name.empty()) return false;
  const s_str text(name);
  for (const TypeRow* type : literals_[static_cast<unsigned char>(name.front())].types) {
    if (type->is_literal(text)) return false;
  }
  return true;
}

bool State::EraseSymbol(std::string_view name) {
  if (name == SymbolTable::kLastResult || !symbols_.Contains(name)) return false;
  symbols_.Erase(s_str(name));
  return true;
}

}  // namespace Quarn

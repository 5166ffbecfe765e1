// The leaves of an expression: what stands between operators and is not in parentheses. A leaf is
// tried as a literal, a symbol, a function call and an indexing, in this order.
//
// Arguments, indices and elements are expressions again, and every level of that nesting stands on
// the stack. What does not recurse is therefore kept out of the functions that do (noinline): their
// temporaries would cost stack at every level.
#include "interpreter/builtins.h"
#include "interpreter/messages.h"
#include "interpreter/state.h"
#include "utils/trim.h"

namespace Quarn {
namespace {

[[gnu::noinline]] bool IsLiteralCopy(LiteralTest is_literal, std::string_view text) {
  return is_literal(s_str(text)) ? true : false;
}

bool IsLiteral(const TypeRow& row, std::string_view text) {
  return row.is_literal_in_place ? row.is_literal_in_place(text)
                                 : IsLiteralCopy(row.is_literal, text);
}

[[gnu::noinline]] s_refptr<Symbol> BuildFromCopy(State& state, const TypeRow& type,
                                                 const s_str& name, std::string_view text,
                                                 s_str& error) {
  return type.create_from(state, name, s_str(text), error);
}

[[gnu::noinline]] s_refptr<Symbol> NewSymbol(std::string_view name) {
  return s_refptr<Symbol>(new Symbol(s_str(name)));
}

[[gnu::noinline]] s_refptr<Symbol> Fail(s_str& error, s_str (*message)(std::string_view),
                                        std::string_view text) {
  AddError(error, message(text));
  return {};
}

// Where the argument list that opens at `open` ends. A parenthesis inside other brackets may never
// close; the last one that closes anything then ends the list.
std::uint32_t FindListEnd(const Piece& leaf, std::uint32_t open) {
  const std::uint32_t close = leaf.FindClose(open);
  if (close != Bracket::kOpenEnd) return close;
  const std::string_view rest = leaf.Behind(open).GetText();
  const std::size_t last = rest.rfind(')');
  return last == std::string_view::npos ? leaf.GetEnd()
                                        : open + 1 + static_cast<std::uint32_t>(last);
}

[[gnu::noinline]] Piece FindList(const Piece& leaf, std::uint32_t open) {
  return leaf.Behind(open).Before(FindListEnd(leaf, open));
}

[[gnu::noinline]] bool Add(Values& arguments, s_refptr<Symbol> argument) {
  if (!argument) return false;
  arguments.PushBack(std::move(argument));
  return true;
}

}  // namespace

s_refptr<Symbol> State::EvaluateLeaf(const Piece& leaf, const s_str& name, s_str& error,
                                     bool allow_new_symbol) {
  const std::string_view text = leaf.GetText();
  bool ambiguous = false;
  // The one operator that scanning never meets, since its "[" opens a bracket.
  if (text == kPriorities[kIndexing].text) return Fail(error, messages::MissingOperands, text);
  if (const TypeRow* type = FindLiteralType(text, ambiguous)) {
    if (type->create_from_piece) return type->create_from_piece(*this, name, leaf, error);
    return BuildFromCopy(*this, *type, name, text, error);
  }
  if (ambiguous) return FailAsAmbiguous(text, error);
  const bool is_name = IsName(text);
  // Nothing else is ever a key, and what is no name may be long.
  const s_refptr<Symbol>* symbol = is_name || text == "_" ? symbols_.Find(text) : nullptr;
  if (symbol) return CopySymbol(**symbol, name, error);
  if (is_name) {
    return allow_new_symbol && name.IsEmpty() ? NewSymbol(text)
                                              : Fail(error, messages::UnknownSymbol, text);
  }
  const std::size_t parenthesis = text.find('(');
  if (parenthesis != std::string_view::npos) {
    return Call(leaf, leaf.GetBegin() + static_cast<std::uint32_t>(parenthesis), error);
  }
  const std::size_t open = text.find('[');
  const std::size_t close = text.find(']');
  if (open != std::string_view::npos && close != std::string_view::npos && open < close) {
    return Index(leaf, leaf.GetBegin() + static_cast<std::uint32_t>(open),
                 leaf.GetBegin() + static_cast<std::uint32_t>(close), name, error);
  }
  return Fail(error, messages::NoOperatorFound, text);
}

// The one type that takes the text for a literal; null when none does, or several do.
const TypeRow* State::FindLiteralType(std::string_view text, bool& ambiguous) const {
  const TypeRow* type = nullptr;
  for (const TypeRow* row : literals_) {
    if (!IsLiteral(*row, text)) continue;
    ambiguous = type != nullptr;
    if (ambiguous) return nullptr;
    type = row;
  }
  return type;
}

s_refptr<Symbol> State::FailAsAmbiguous(std::string_view text, s_str& error) const {
  s_ctnr<s_str> types;
  for (const TypeRow* row : literals_) {
    if (IsLiteral(*row, text)) types.PushBack(row->name);
  }
  AddError(error, messages::AmbiguousConstructor(text, types));
  return {};
}

[[gnu::noinline]] s_refptr<Symbol> State::CopySymbol(const Symbol& symbol, const s_str& name,
                                                     s_str& error) {
  s_refptr<Symbol> copy = symbol.Clone();
  copy->SetName(name);
  // Asking a reference for its type evaluates it, so it is only asked where it matters.
  if (!name.IsEmpty() && copy->GetType() == Symbol::kType) {
    AddError(error, messages::SymbolAssignedToSymbol());
  }
  return copy;
}

[[gnu::noinline]] s_refptr<Symbol> State::Call(const Piece& leaf, std::uint32_t open,
                                               s_str& error) {
  const std::string_view name = TrimSpaces(leaf.Before(open).GetText());
  const auto function = functions_.find(name);
  if (function == functions_.end()) return Fail(error, messages::UndefinedFunction, name);
  const LentLists lists(workspace_);
  lists->part = FindList(leaf, open);
  if (!lists->part.CheckBrackets(error)) return {};
  lists->parts = Parts(lists->part);
  while (lists->parts.Next(lists->part)) {
    if (!Add(lists->arguments, Evaluate(lists->part, Symbol::NoName(), error))) return {};
  }
  return CallOverload(function->first, function->second, *lists, error);
}

[[gnu::noinline]] s_refptr<Symbol> State::CallOverload(const s_str& name,
                                                       const Registry<Function>& overloads,
                                                       CallLists& lists, s_str& error) {
  s_str signature = "(";
  for (s_refptr<Symbol>& argument : lists.arguments) {
    if (signature.GetSize() > s_uint(1U)) signature.Append(", ");
    s_refptr<Symbol> resolved = Resolve(argument);
    if (depth_.IsExhausted()) return {};
    signature.Append(resolved ? resolved->GetType().GetView() : kReferenceType);
    if (resolved) argument = std::move(resolved);
  }
  signature += ')';
  const auto overload = overloads.find(signature);
  if (overload == overloads.end()) {
    s_ctnr<s_str> candidates;
    for (const auto& [candidate, body] : overloads) candidates.PushBack(candidate);
    AddError(error, messages::NoMatchingFunction(name, signature, candidates));
    return {};
  }
  if (!overload->second(*this, lists.arguments, lists.results, error)) return {};
  if (lists.results.GetSize() == s_uint(1U)) return *lists.results.begin();
  AddError(error, messages::NotOneReturnValue());
  return {};
}

[[gnu::noinline]] s_refptr<Symbol> State::Index(const Piece& leaf, std::uint32_t open,
                                                std::uint32_t close, const s_str& name,
                                                s_str& error) {
  if (close == open + 1) {
    AddError(error, messages::EmptyIndex());
    return {};
  }
  if (open == leaf.GetBegin()) {
    AddError(error, messages::IndexOnNothing());
    return {};
  }
  s_refptr<Symbol> object = Evaluate(leaf.Before(open), Symbol::NoName(), error);
  if (!object) return {};
  s_refptr<Symbol> index = Evaluate(leaf.Behind(open).Before(close), Symbol::NoName(), error);
  if (!index) return {};
  s_refptr<Symbol> element = ApplyBinary(kIndexing, object, index, error);
  if (element) element->SetName(name);
  return element;
}

}  // namespace Quarn

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

// Whose literal a text is: of one type, of several, or of none.
struct LiteralTypes {
  const TypeRow* one = nullptr;
  bool several = false;
};

// Adds a message for several. The text that the tests look at must not be held by every level.
[[gnu::noinline]] LiteralTypes FindLiteralTypes(const std::vector<const TypeRow*>& types,
                                                std::string_view leaf, s_str& error) {
  const s_str text(leaf);
  std::vector<const TypeRow*> found;
  for (const TypeRow* type : types) {
    if (type->is_literal(text)) found.push_back(type);
  }
  if (found.empty()) return {};
  if (found.size() == 1) return {found.front()};
  s_ctnr<s_str> names;
  for (const TypeRow* type : found) names.PushBack(type->name);
  AddError(error, messages::AmbiguousConstructor(leaf, names));
  return {nullptr, true};
}

// The types of arguments that stand for themselves. False when there are too many, or one may stand
// for another value.
bool FindFixedTypes(const Values& arguments,
                    std::array<const char*, FunctionDispatch::kArguments>& types) {
  std::size_t count = 0;
  for (const s_refptr<Symbol>& argument : arguments) {
    if (count == types.size()) return false;
    types[count] = argument->GetFixedType().Get();
    if (!types[count++]) return false;
  }
  return true;
}

}  // namespace

void State::EvaluateOtherLeaf(const Piece& leaf, const s_str& name, s_str& error,
                              bool allow_new_symbol, s_refptr<Symbol>& spare,
                              s_refptr<Symbol>& value) {
  const std::string_view text = leaf.GetText();
  const LiteralStart& start = GetLiteralStart(leaf);
  // The one operator that scanning never meets, since its "[" opens a bracket.
  if (text == kPriorities[kIndexing].text) {
    value = Fail(error, messages::MissingOperands, text);
  } else if (start.only || start.types.empty() ||
             !BuildOneOf(start.types, leaf, name, error, spare, value)) {
    value = EvaluateNoLiteral(leaf, name, error, allow_new_symbol);
  }
}

s_refptr<Symbol> State::EvaluateNoLiteral(const Piece& leaf, const s_str& name, s_str& error,
                                          bool allow_new_symbol) {
  const std::string_view text = leaf.GetText();
  // Nothing else is ever in the table; looking for a long call at each level of its nesting would
  // cost its length each time.
  const bool is_name = IsName(text);
  const s_refptr<Symbol>* symbol =
      is_name || text == SymbolTable::kLastResult ? symbols_.Find(text) : nullptr;
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

// False when the leaf is no literal.
bool State::BuildOneOf(const std::vector<const TypeRow*>& types, const Piece& leaf,
                       const s_str& name, s_str& error, s_refptr<Symbol>& spare,
                       s_refptr<Symbol>& value) {
  const LiteralTypes found = FindLiteralTypes(types, leaf.GetText(), error);
  if (!found.one) return found.several;
  const LiteralInPlace build = found.one->build_in_place;
  if (build) return build(*this, name, leaf, error, spare, value);
  value = found.one->create_from(*this, name, s_str(leaf.GetText()), error);
  return true;
}

[[gnu::noinline]] s_refptr<Symbol> State::CopySymbol(const Symbol& symbol, const s_str& name,
                                                     s_str& error) {
  s_refptr<Symbol> copy = symbol.Clone();
  copy->SetName(name);
  // Asking a reference for its type evaluates it, so it is only asked where it matters.
  if (!name.IsEmpty() && !copy->GetFixedType() && copy->GetType() == Symbol::kType) {
    AddError(error, messages::SymbolAssignedToSymbol());
  }
  return copy;
}

[[gnu::noinline]] s_refptr<Symbol> State::Call(const Piece& leaf, std::uint32_t open,
                                               s_str& error) {
  const std::string_view name = TrimSpaces(leaf.Before(open).GetText());
  const auto found = function_index_.find(name);
  if (found == function_index_.end()) return Fail(error, messages::UndefinedFunction, name);
  const FunctionRegistry::value_type& function = *found->second;
  const LentLists lists(workspace_);
  lists->part = FindList(leaf, open);
  if (!lists->part.CheckBrackets(error)) return {};
  lists->parts = Parts(lists->part);
  while (lists->parts.Next(lists->part)) {
    if (!Add(lists->arguments, Evaluate(lists->part, Symbol::NoName(), error))) return {};
  }
  return CallOverload(function.first, function.second, *lists, error);
}

[[gnu::noinline]] s_refptr<Symbol> State::CallOverload(const s_str& name,
                                                       const Registry<Function>& overloads,
                                                       CallLists& lists, s_str& error) {
  FunctionDispatch::Key key{&overloads, {}};
  const bool can_remember = FindFixedTypes(lists.arguments, key.types);
  const Function* body = can_remember ? function_dispatch_.Find(key) : nullptr;
  if (!body) {
    body = FindOverload(name, overloads, lists.arguments, error);
    if (!body) return {};
    if (can_remember) function_dispatch_.Remember(key, body);
  }
  if (!(*body)(*this, lists.arguments, lists.results, error)) return {};
  if (lists.results.GetSize() == s_uint(1U)) return std::move(*lists.results.begin());
  AddError(error, messages::NotOneReturnValue());
  return {};
}

// Resolves the arguments, each once and in order, and finds the overload for their types. Null,
// with a message unless the nesting is too deep, when there is none.
const Function* State::FindOverload(const s_str& name, const Registry<Function>& overloads,
                                    Values& arguments, s_str& error) const {
  s_str signature = "(";
  std::string_view separator;
  for (s_refptr<Symbol>& argument : arguments) {
    s_refptr<Symbol> resolved = Resolve(argument);
    if (depth_.IsExhausted()) return nullptr;
    signature.Append(separator);
    signature.Append(resolved ? resolved->GetType().GetView() : kReferenceType);
    if (resolved) argument = std::move(resolved);
    separator = ", ";
  }
  signature += ')';
  const auto overload = overloads.find(signature);
  if (overload != overloads.end()) return &overload->second;
  s_ctnr<s_str> candidates;
  for (const auto& [candidate, body] : overloads) candidates.PushBack(candidate);
  AddError(error, messages::NoMatchingFunction(name, signature, candidates));
  return nullptr;
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
  ApplyBinary(kIndexing, object, index, error);
  if (object) object->SetName(name);
  return object;
}

}  // namespace Quarn

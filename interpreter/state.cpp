#include "interpreter/state.h"

#include <cassert>
#include <iostream>

#include "interpreter/builtins.h"

namespace Quarn {
namespace {

bool MayBeginLiteral(const TypeRow& type, char start) {
  if (!type.is_literal) return false;
  const std::string_view starts = type.literal_starts.GetView();
  return starts.empty() || starts.find(start) != std::string_view::npos;
}

// No expression can ever use a row for another text.
[[maybe_unused]] bool IsOperator(const s_str& op) {
  return FindOperator(op.GetView()) != kOperators;
}

// A State may be made before main, and before the object of this file that sets the streams up.
std::ostream& StandardOutput() {
  static const std::ios_base::Init streams;
  return std::cout;
}

s_refptr<Symbol> CreateSymbol(const s_str& name) { return s_refptr<Symbol>(new Symbol(name)); }

}  // namespace

State::State() : State(StandardOutput(), std::cin) {}

State::State(std::ostream& out, std::istream& in) : out_(out), in_(in) {
  AddType({Symbol::kType, CreateSymbol});
  RegisterBuiltins(*this);
  SetLastResult({});
}

void State::SetLastResult(s_refptr<Symbol> value) {
  if (!value) value = NewReference(*this, Symbol::NoName(), "");
  symbols_.SetLastResult(std::move(value));
}

void State::Flush() { out_.flush(); }

// Memory that runs out while something is registered leaves all as it was, or has the row in use:
// what may fail is made before anything changes.

void State::AddType(const TypeRow& row) {
  Registry<TypeRow> types = types_;
  types.insert_or_assign(row.name, row);
  decltype(literals_) literals;
  for (std::size_t code = 0; code < literals.size(); ++code) {
    LiteralStart& start = literals[code];
    for (const auto& [name, type] : types) {
      if (MayBeginLiteral(type, static_cast<char>(code))) start.types.push_back(&type);
    }
    // A "[" may begin the operator "[]", which is looked for first.
    if (start.types.size() == 1 && code != '[') start.only = start.types[0]->build_in_place;
  }
  types_.swap(types);
  literals_.swap(literals);
}

// A body that is replaced may be running; it then stays where it is until nothing runs any more.
template <class Body>
void State::Put(Registry<Body>& bodies, Registry<Body>& fresh) {
  const auto old = bodies.find(fresh.begin()->first);
  if (old != bodies.end()) {
    const auto kept = std::make_shared<typename Registry<Body>::node_type>();
    if (!depth_.IsOutside()) replaced_.push_back(kept);
    *kept = bodies.extract(old);
  }
  bodies.insert(fresh.extract(fresh.begin()));
}

void State::DropReplaced() {
  if (!replaced_.empty() && depth_.IsOutside()) replaced_.clear();
}

void State::AddBinary(std::initializer_list<BinaryRow> rows) {
  binary_dispatch_ = {};
  for (const BinaryRow& row : rows) {
    assert(IsOperator(row.op));
    Registry<BinaryOperator> fresh;
    fresh.emplace(row.right, row.body);
    Put(binary_[row.op][row.left], fresh);
  }
}

void State::AddUnary(UnaryRegistry& registry, std::initializer_list<UnaryRow> rows) {
  for (const UnaryRow& row : rows) {
    assert(IsOperator(row.op));
    Registry<UnaryOperator> fresh;
    fresh.emplace(row.operand, row.body);
    Put(registry[row.op], fresh);
  }
}

void State::AddRightUnary(std::initializer_list<UnaryRow> rows) { AddUnary(right_unary_, rows); }

void State::AddLeftUnary(std::initializer_list<UnaryRow> rows) { AddUnary(left_unary_, rows); }

void State::AddFunctions(std::initializer_list<FunctionRow> rows) {
  for (const FunctionRow& row : rows) AddFunction(row.name, row.arguments, row.body);
}

void State::AddFunction(const s_str& name, const s_ctnr<s_str>& argument_types, Function body) {
  s_str signature = "(";
  std::string_view separator;
  for (const s_str& type : argument_types) {
    signature.Append(separator).Append(type.GetView());
    separator = ", ";
  }
  signature += ')';
  function_dispatch_ = {};
  FunctionRegistry fresh;
  Registry<Function>& overload = fresh[name];
  overload.emplace(signature, std::move(body));
  const auto known = functions_.find(name);
  if (known != functions_.end()) return Put(known->second, overload);
  const auto& function = *fresh.begin();
  function_index_.emplace(function.first.GetView(), &function);
  functions_.insert(fresh.extract(fresh.begin()));
}

}  // namespace Quarn

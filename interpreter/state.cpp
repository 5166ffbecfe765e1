#include "interpreter/state.h"

#include <iostream>

#include "interpreter/builtins.h"

namespace Quarn {
namespace {

bool MayBeginLiteral(const TypeRow& type, char start) {
  if (!type.is_literal) return false;
  return type.literal_starts.empty() || type.literal_starts.find(start) != std::string_view::npos;
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

void State::AddType(const TypeRow& row) {
  types_.insert_or_assign(row.name, row);
  decltype(literals_) literals;
  for (std::size_t code = 0; code < literals.size(); ++code) {
    LiteralStart& start = literals[code];
    for (const auto& [name, type] : types_) {
      if (MayBeginLiteral(type, static_cast<char>(code))) start.types.push_back(&type);
    }
    // A "[" may begin the operator "[]", which is looked for first.
    if (start.types.size() == 1 && code != '[') start.only = start.types[0]->build_in_place;
  }
  literals_ = std::move(literals);
}

// Each body is copied before there is an entry for it: memory that runs out leaves no empty one.
void State::AddBinary(std::initializer_list<BinaryRow> rows) {
  for (const BinaryRow& row : rows) {
    BinaryOperator body = row.body;
    binary_[row.op][row.left][row.right] = std::move(body);
  }
  binary_dispatch_ = {};
}

void State::AddUnary(UnaryRegistry& registry, std::initializer_list<UnaryRow> rows) {
  for (const UnaryRow& row : rows) {
    UnaryOperator body = row.body;
    registry[row.op][row.operand] = std::move(body);
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
  const auto function = functions_.try_emplace(name).first;
  function->second[signature] = std::move(body);
  function_index_[function->first.GetView()] = &*function;
}

}  // namespace Quarn

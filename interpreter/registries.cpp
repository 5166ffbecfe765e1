#include "interpreter/registries.h"

#include <cassert>

#include "interpreter/builtins.h"

namespace Quarn {
namespace {

bool MayBeginLiteral(const TypeRow& type, char start) {
  if (!type.is_literal) return false;
  const std::string_view starts = type.literal_starts.GetView();
  return starts.empty() || starts.find(start) != std::string_view::npos;
}

s_str SignatureOf(const s_ctnr<s_str>& types) {
  s_str signature = "(";
  std::string_view separator;
  for (const s_str& type : types) {
    signature.Append(separator).Append(type.GetView());
    separator = ", ";
  }
  return signature += ')';
}

// How many numbers a function takes that takes nothing else; -1 for any other.
int CountNumbers(const s_ctnr<s_str>& types) {
  if (types.GetSize() == s_uint(1U) && types.begin()->IsEmpty()) return 0;
  int count = 0;
  for (const s_str& type : types) {
    if (type.GetView() != kNumberType) return -1;
    ++count;
  }
  return count;
}

}  // namespace

bool Registries::IsWithinReach(std::string_view name) const {
  if (name.empty()) return false;
  for (const TypeRow* type : GetLiteralStart(name.front()).types) {
    if (type->is_literal(name)) return false;
  }
  return true;
}

// Memory that runs out while something is registered leaves all as it was, or has the row in use:
// what may fail is made before anything changes.
void Registries::AddType(const TypeRow& row) {
  TypeRow other = row;
  const auto [type, is_new] = types_.try_emplace(row.name);
  std::swap(type->second, other);
  try {
    IndexLiterals();
    if (row.create_list) list_type_ = row.name;
  } catch (...) {
    std::swap(type->second, other);
    if (is_new) types_.erase(type);
    throw;
  }
  ++version_;
  IndexCommon();
}

// The operators of numbers and lists are found without their names.
void Registries::IndexCommon() {
  const std::string_view types[] = {kNumberType, list_type_.GetView()};
  for (std::size_t op = 0; op < kOperators; ++op) {
    if (!binary_index_[op]) continue;
    for (int left = 0; left < 2; ++left) {
      const auto by_right = binary_index_[op]->find(types[left]);
      if (by_right == binary_index_[op]->end()) continue;
      for (int right = 0; right < 2; ++right) {
        const auto entry = by_right->second.find(types[right]);
        if (entry != by_right->second.end()) common_[op][left][right] = &entry->second;
      }
    }
  }
}

void Registries::IndexLiterals() {
  decltype(literals_) literals;
  for (std::size_t code = 0; code < literals.size(); ++code) {
    LiteralStart& start = literals[code];
    for (const auto& [name, type] : types_) {
      if (MayBeginLiteral(type, static_cast<char>(code))) start.types.push_back(&type);
    }
    if (start.types.size() == 1) start.read_number = start.types[0]->read_number;
  }
  literals_ = std::move(literals);
}

void Registries::AddBinary(const BinaryRow& row) {
  const std::size_t op = FindOperator(row.op.GetView());
  assert(op < kOperators && "no expression can use this operator");
  ++version_;
  RegisteredBinary entry{row.body, row.on_numbers, row.on_operands, row.purity};
  ByLeft& by_left = binary_[row.op];
  by_left[row.left][row.right] = std::move(entry);
  if (op == kOperators) return;
  binary_index_[op] = &by_left;
  IndexCommon();
  if (row.left.GetView() != kNumberType || row.right.GetView() != kNumberType) return;
  on_numbers_[op] = row.purity == Purity::kPure ? row.on_numbers : nullptr;
}

void Registries::AddUnary(Unary& registry, const UnaryRow& row) {
  const std::size_t op = FindOperator(row.op.GetView());
  assert(op < kOperators && "no expression can use this operator");
  ++version_;
  RegisteredUnary body{row.body, row.on_numbers, row.purity};
  registry.by_text[row.op][row.operand] = std::move(body);
  if (op == kOperators || row.operand.GetView() != kNumberType) return;
  registry.on_numbers[op] = row.purity == Purity::kPure ? row.on_numbers : nullptr;
}

void Registries::AddFunction(const FunctionRow& row) {
  RegisteredFunction body{row.body, row.on_numbers, row.purity};
  const s_str signature = SignatureOf(row.arguments);
  const auto known = functions_.find(row.name);
  if (known != functions_.end()) {
    known->second[signature] = std::move(body);
  } else {
    AddNamedFunction(row.name, signature, std::move(body));
  }
  ++version_;
  const int count = CountNumbers(row.arguments);
  if (count < 0 || count > 2) return;
  NamedFunction& named = named_functions_[function_index_.find(row.name.GetView())->second];
  if (count == 0) named.on_numbers.of_none = row.on_numbers.of_none;
  if (count == 1) named.on_numbers.of_one = row.on_numbers.of_one;
  if (count == 2) named.on_numbers.of_two = row.on_numbers.of_two;
  named.purity_on_numbers[count] = row.purity;
}

void Registries::AddNamedFunction(const s_str& name, const s_str& signature,
                                  RegisteredFunction body) {
  FunctionRegistry fresh;
  fresh[name][signature] = std::move(body);
  const auto& [own_name, overloads] = *fresh.begin();
  named_functions_.reserve(named_functions_.size() + 1);
  function_index_.emplace(own_name.GetView(), named_functions_.size());
  named_functions_.push_back({&own_name, &overloads, {}, {}});
  functions_.insert(fresh.extract(fresh.begin()));
}

}  // namespace Quarn

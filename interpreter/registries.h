// Registries hold what the types of a State registered, and the indexes by which an evaluation
// finds it. An entry for the same key takes the place of an earlier one.
#pragma once

#include <array>
#include <cstddef>
#include <unordered_map>
#include <vector>

#include "interpreter/priorities.h"
#include "interpreter/registry.h"
#include "utils/text_hash.h"

namespace Quarn {

class Registries {
 public:
  void AddType(const TypeRow& row);
  void AddBinary(const BinaryRow& row);
  void AddRightUnary(const UnaryRow& row) { AddUnary(right_unary_, row); }
  void AddLeftUnary(const UnaryRow& row) { AddUnary(left_unary_, row); }
  void AddFunction(const FunctionRow& row);

  const Registry<TypeRow>& GetTypes() const { return types_; }
  const BinaryRegistry& GetBinaryOperators() const { return binary_; }
  const UnaryRegistry& GetLeftUnaryOperators() const { return left_unary_.by_text; }
  const UnaryRegistry& GetRightUnaryOperators() const { return right_unary_.by_text; }
  const FunctionRegistry& GetFunctions() const { return functions_; }

  // Grows with each registration: what was read from a text before it may mean something else.
  unsigned int GetVersion() const { return version_; }

  // The types that may have a literal beginning with a character, in ascending order of their
  // names; others are not asked.
  struct LiteralStart {
    std::vector<const TypeRow*> types;
    // Of the only type there, if it has one.
    NumberReader read_number = nullptr;
  };
  const LiteralStart& GetLiteralStart(char start) const {
    return literals_[static_cast<unsigned char>(start)];
  }

  // Can an expression ask for a symbol of the name? Nothing asks for the empty one, and a literal
  // is taken for one before it is looked up.
  bool IsWithinReach(std::string_view name) const;

  // A function of a name, with its overloads.
  struct NamedFunction {
    const s_str* name;
    const Registry<RegisteredFunction>* overloads;
    // Of the overloads for numbers alone; null where there is none that takes plain numbers.
    FunctionOnNumbers on_numbers;
    Purity purity_on_numbers[3];
  };
  static constexpr std::size_t kNoFunction = static_cast<std::size_t>(-1);
  std::size_t FindFunction(std::string_view name) const {
    const auto found = function_index_.find(name);
    return found == function_index_.end() ? kNoFunction : found->second;
  }
  const NamedFunction& GetFunction(std::size_t place) const { return named_functions_[place]; }

  // Operators by their text, or by their place in kPriorities. Null when nothing is registered; for
  // numbers, when that is not pure, or not for plain numbers.
  BinaryOnNumbers GetOnNumbers(std::size_t op) const { return on_numbers_[op]; }
  // Between a number or a list on either side, by place; null when nothing is registered.
  const RegisteredBinary* FindBinary(std::size_t op, bool left_is_list, bool right_is_list) const {
    return common_[op][left_is_list][right_is_list];
  }
  using ByLeft = Registry<Registry<RegisteredBinary>>;
  const ByLeft* FindBinary(std::string_view op) const {
    const std::size_t place = FindOperator(op);
    if (place < kOperators) return binary_index_[place];
    const auto found = binary_.find(op);
    return found == binary_.end() ? nullptr : &found->second;
  }

  // One table of operators with one operand.
  struct Unary {
    UnaryRegistry by_text;
    // For numbers, by place; as for two operands.
    std::array<UnaryOnNumbers, kOperators + 1> on_numbers{};
  };
  const Unary& GetLeftUnary() const { return left_unary_; }
  const Unary& GetRightUnary() const { return right_unary_; }

 private:
  void AddNamedFunction(const s_str& name, const s_str& signature, RegisteredFunction body);
  void AddUnary(Unary& registry, const UnaryRow& row);
  void IndexLiterals();

  Registry<TypeRow> types_;
  BinaryRegistry binary_;
  Unary left_unary_;
  Unary right_unary_;
  FunctionRegistry functions_;

  std::array<LiteralStart, 256> literals_;
  std::array<const ByLeft*, kOperators> binary_index_{};
  // One more than there are operators: of any other there is none.
  BinaryOnNumbers on_numbers_[kOperators + 1] = {};
  void IndexCommon();
  const RegisteredBinary* common_[kOperators + 1][2][2] = {};
  s_str list_type_ = {};  // the name of the type whose literals are lists
  std::vector<NamedFunction> named_functions_;
  std::unordered_map<std::string_view, std::size_t, TextHash, TextEqual> function_index_;
  unsigned int version_ = 0;
};

}  // namespace Quarn

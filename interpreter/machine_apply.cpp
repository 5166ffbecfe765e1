// The application of operators to values: find the implementation for the operands' types, resolve
// references, call it, or say that there is none.
#include <algorithm>
#include <array>

#include "interpreter/machine_entry.h"
#include "interpreter/messages.h"
#include "interpreter/registries.h"

namespace Quarn {
namespace {

// What is registered for the type of a value.
template <class Entries>
const typename Entries::mapped_type* FindType(const Entries& entries, const s_str& type) {
  const auto found = entries.find(type);
  return found == entries.end() ? nullptr : &found->second;
}

}  // namespace

// The left operand is resolved first, and the right one only if the left has an implementation.
// The operands are on the stack; of the stages, 2 begins when the left one is resolved.
Machine::Step Machine::Binary(std::size_t op) {
  if (Top().description) return Describe(op, Code::kBinary, false);
  if (const RegisteredBinary* entry = FindCommon(op, operands_[1], operands_[0])) {
    Operand right = operands_.Pop();
    Operand left = operands_.Pop();
    return Invoke(*entry, left, right);
  }
  const Registries::ByLeft* by_left = registries_.FindBinary(GetOp(op));
  if (!by_left) return Describe(op, Code::kBinary, false);
  Resolved kind = Resolved::kValue;
  Top().stage = std::max(Top().stage, 1U);
  if (Top().stage < 2) {
    Operand value;
    if (!Resolve(Operand(operands_[1]), value, kind)) return Stop();
    if (kind == Resolved::kNothing) return Describe(op, Code::kBinary, false);
    Top().value = std::move(value);
    Top().stage = 2;
  }
  // A number on the left of an operator of numbers has an implementation.
  const BinaryOnNumbers on_numbers = registries_.GetOnNumbers(op);
  const bool is_number = on_numbers && Top().value.IsNumber();
  const Registry<RegisteredBinary>* by_right = nullptr;
  if (!is_number) {
    const s_str type = Operand(Top().value).GetType();
    if (type.GetView() == kReferenceType) return Describe(op, Code::kBinary, true);
    by_right = FindType(*by_left, type);
    if (!by_right) return Describe(op, Code::kBinary, false);
  }
  Operand right;
  if (!Resolve(Operand(operands_[0]), right, kind)) return Stop();
  if (kind == Resolved::kNothing) return Describe(op, Code::kBinary, false);
  if (is_number && right.IsNumber()) {
    const double result = on_numbers(Top().value.GetNumber(), right.GetNumber());
    operands_.Drop(2);
    operands_.Push(result);
    return Step::kNext;
  }
  const s_str right_type = right.GetType();
  if (right_type.GetView() == kReferenceType) return Describe(op, Code::kBinary, true);
  if (is_number) by_right = &by_left->find(std::string_view(kNumberType))->second;
  const RegisteredBinary* entry = FindType(*by_right, right_type);
  if (!entry) return Describe(op, Code::kBinary, false);
  operands_.Drop(2);
  Operand left = std::exchange(Top().value, Operand());
  return Invoke(*entry, left, right);
}

// The implementation between numbers and lists; null when an operand is neither.
const RegisteredBinary* Machine::FindCommon(std::size_t op, const Operand& left,
                                            const Operand& right) const {
  const bool left_is_list = left.IsList();
  const bool right_is_list = right.IsList();
  if (!left_is_list && !left.IsNumber()) return nullptr;
  if (!right_is_list && !right.IsNumber()) return nullptr;
  return registries_.FindBinary(op, left_is_list, right_is_list);
}

// The implementation may register another in its own place while it runs, so it is copied.
Machine::Step Machine::Invoke(const RegisteredBinary& entry, Operand& left, Operand& right) {
  if (entry.purity == Purity::kImpure) Top().is_impure = true;
  if (const BinaryOnOperands on_operands = entry.on_operands) {
    std::optional<Operand> result = on_operands(state_, left, right, GetError());
    if (!result || abort_ != Failure::kNone) return Step::kFailed;
    operands_.Push(std::move(*result));
    return Step::kNext;
  }
  const BinaryOperator body = entry.body;
  return FinishCall(body(left.Take(), right.Take(), GetError()));
}

// Pushes the result of an operator. Within an expression it has no name;
// an operator on its own may give it one.
Machine::Step Machine::FinishCall(s_refptr<Symbol> result) {
  if (!result || abort_ != Failure::kNone) return Step::kFailed;
  if (!result->GetName().IsEmpty() && Top().op.empty()) result->SetName(Symbol::NoName());
  operands_.Push(std::move(result));
  return Step::kNext;
}

Machine::Step Machine::Unary(Code kind, std::size_t op) {
  if (Top().description) return Describe(op, kind, false);
  const Registries::Unary& registry =
      kind == Code::kLeftUnary ? registries_.GetLeftUnary() : registries_.GetRightUnary();
  if (registry.on_numbers[op] && operands_[0].IsNumber()) {
    operands_[0].SetNumber(registry.on_numbers[op](operands_[0].GetNumber()));
    return Step::kNext;
  }
  const auto by_type = registry.by_text.find(GetOp(op));
  if (by_type == registry.by_text.end()) return Describe(op, kind, false);
  Operand value;
  Resolved resolved;
  if (!Resolve(Operand(operands_[0]), value, resolved)) return Stop();
  if (resolved == Resolved::kNothing) return Describe(op, kind, false);
  const RegisteredUnary* entry = FindType(by_type->second, value.GetType());
  if (!entry) return Describe(op, kind, false);
  if (entry->purity == Purity::kImpure) Top().is_impure = true;
  const UnaryOperator body = entry->body;
  operands_.Drop(1);
  return FinishCall(body(value.Take(), GetError()));
}

// ---- Operators on their own ----

namespace {

// A program for each operator that applies it to what is on the stack.
using Applications = std::array<Program, kOperators + 1>;

Applications MakeApplications(Code kind) {
  Applications programs;
  for (std::size_t op = 0; op <= kOperators; ++op) {
    programs[op].code.push_back(
        {.code = kind, .op = static_cast<std::uint8_t>(op), .position = 0, .number = 0});
    programs[op].code.push_back({.code = Code::kEnd, .position = 0, .number = 0});
  }
  return programs;
}

bool IsReference(const s_refptr<Symbol>& value) {
  return value->GetKind() == Symbol::Kind::kReference;
}

}  // namespace

// Between values that stand for themselves nothing is asked that could be suspended. Vectors in
// vectors come here for each level: the rest is noinline, so that little of it is on the stack.
s_refptr<Symbol> Machine::ApplyBinary(std::string_view op, s_refptr<Symbol> left,
                                      s_refptr<Symbol> right, s_str& error) {
  if (!depth_.IsIdle() && !IsReference(left) && !IsReference(right)) {
    const Depth::Level level(depth_);
    if (!level.IsGranted()) abort_ = Failure::kMemory;
    if (abort_ != Failure::kNone) return {};
    const BinaryOperator body = FindBody(op, *left, *right);
    if (body) return body(std::move(left), std::move(right), error);
  }
  return RunBinary(op, left, right, error);
}

[[gnu::noinline]] s_refptr<Symbol> Machine::RunBinary(std::string_view op,
                                                      const s_refptr<Symbol>& left,
                                                      const s_refptr<Symbol>& right, s_str& error) {
  static const Applications applications = MakeApplications(Code::kBinary);
  const Operand operands[] = {Operand(left), Operand(right)};
  return RunAlone(applications[FindOperator(op)], operands, op, error);
}

// Empty when there is none.
[[gnu::noinline]] BinaryOperator Machine::FindBody(std::string_view op, const Symbol& left,
                                                   const Symbol& right) {
  const Registries::ByLeft* by_left = registries_.FindBinary(op);
  if (!by_left) return {};
  const auto* by_right = FindType(*by_left, left.GetType());
  if (!by_right) return {};
  const RegisteredBinary* entry = FindType(*by_right, right.GetType());
  if (!entry) return {};
  if (entry->purity == Purity::kImpure) MarkImpure();
  return entry->body;
}

s_refptr<Symbol> Machine::ApplyUnary(Code kind, std::string_view op, s_refptr<Symbol> operand,
                                     s_str& error) {
  if (!depth_.IsIdle() && !IsReference(operand)) {
    const Depth::Level level(depth_);
    if (!level.IsGranted()) abort_ = Failure::kMemory;
    if (abort_ != Failure::kNone) return {};
    const UnaryOperator body = FindBody(kind, op, *operand);
    if (body) return body(std::move(operand), error);
  }
  return RunUnary(kind, op, operand, error);
}

[[gnu::noinline]] s_refptr<Symbol> Machine::RunUnary(Code kind, std::string_view op,
                                                     const s_refptr<Symbol>& operand,
                                                     s_str& error) {
  static const Applications left = MakeApplications(Code::kLeftUnary);
  static const Applications right = MakeApplications(Code::kRightUnary);
  const Operand operands[] = {Operand(operand)};
  return RunAlone((kind == Code::kLeftUnary ? left : right)[FindOperator(op)], operands, op, error);
}

[[gnu::noinline]] UnaryOperator Machine::FindBody(Code kind, std::string_view op,
                                                  const Symbol& operand) {
  const Registries::Unary& registry =
      kind == Code::kLeftUnary ? registries_.GetLeftUnary() : registries_.GetRightUnary();
  const auto by_type = registry.by_text.find(op);
  if (by_type == registry.by_text.end()) return {};
  const RegisteredUnary* entry = FindType(by_type->second, operand.GetType());
  if (!entry) return {};
  if (entry->purity == Purity::kImpure) MarkImpure();
  return entry->body;
}

s_refptr<Symbol> Machine::RunAlone(const Program& program, std::span<const Operand> operands,
                                   std::string_view op, s_str& error) {
  Entry entry(*this);
  const s_uint reported = error.GetSize();
  if (!entry.IsGranted()) {
    AddAbort(error);
    return {};
  }
  for (const Operand& operand : operands) operands_.Push(operand);
  Frame& frame = PushFrame(program, {}, Symbol::NoName());
  frame.op = op;
  frame.error = &error;
  if (Run(entry.GetBase())) return operands_[0].Take();
  if (abort_ == Failure::kNone) return {};
  error = error.ExtractCount(0U, reported);
  AddAbort(error);
  return {};
}

}  // namespace Quarn

// The application of operators to values: find the implementation for the operands' types, resolve
// references, call it, or say that there is none. Resolving may evaluate, and so lead here again:
// see leaf.cpp about what that takes of the stack.
#include "interpreter/builtins.h"
#include "interpreter/messages.h"
#include "interpreter/state.h"

namespace Quarn {
namespace {

// An operand in a message or a deferred operation: its value if it is a temporary.
s_str TextOf(const Symbol& operand) {
  return operand.GetName().IsEmpty() ? operand.ToString() : s_str();
}

[[gnu::noinline]] bool HasNoValueYet(const Symbol& value) {
  return value.GetType().GetView() == kReferenceType;
}

template <class Entries>
[[gnu::noinline]] const typename Entries::mapped_type* FindType(const Entries& entries,
                                                                const Symbol& value) {
  const auto found = entries.find(value.GetType());
  return found == entries.end() ? nullptr : &found->second;
}

[[gnu::noinline]] s_refptr<Symbol> Invoke(const BinaryOperator& body, s_refptr<Symbol>& left,
                                          s_refptr<Symbol>& right, s_str& error) {
  return body(std::move(left), std::move(right), error);
}

[[gnu::noinline]] s_refptr<Symbol> Invoke(const UnaryOperator& body, s_refptr<Symbol>& operand,
                                          s_str& error) {
  return body(std::move(operand), error);
}

// The messages for operands without an implementation; types first, then texts, left before right.
[[gnu::noinline]] s_refptr<Symbol> FailToMatch(std::string_view op, const Symbol& left,
                                               const Symbol& right, s_str& error) {
  const s_str left_type = left.GetType();
  const s_str right_type = right.GetType();
  const s_str left_text = TextOf(left);
  const s_str right_text = TextOf(right);
  AddError(error, messages::NoBinaryMatch(op, left_type, right_type, left_text, right_text));
  return {};
}

using UnaryMessage = s_str (*)(std::string_view op, const s_str& type, const s_str& operand);
[[gnu::noinline]] s_refptr<Symbol> FailToMatch(UnaryMessage message, std::string_view op,
                                               const Symbol& operand, s_str& error) {
  const s_str type = operand.GetType();
  AddError(error, message(op, type, TextOf(operand)));
  return {};
}

}  // namespace

s_refptr<Symbol> State::ApplyBinaryOperator(std::string_view op, s_refptr<Symbol> left,
                                            s_refptr<Symbol> right, s_str& error) {
  if (depth_.IsOutside()) {
    return RunOutermost(error, [&] { return ApplyBinaryOperator(op, left, right, error); });
  }
  const std::size_t known = FindOperator(op);
  if (known == kOperators) return SearchBinary(op, left, right, error);
  ApplyBinary(known, left, right, error);
  return left;
}

void State::ApplyBinary(std::size_t op, s_refptr<Symbol>& left, s_refptr<Symbol>& right,
                        s_str& error) {
  const BinaryImplementation* known = FindRemembered(op, *left, *right);
  if (!known) {
    left = SearchBinary(kPriorities[op].text, left, right, error);
  } else if (known->in_place) {
    known->in_place(left, right);
  } else {
    left = Invoke(*known->body, left, right, error);
  }
}

s_refptr<Symbol> State::SearchBinary(std::string_view op, const s_refptr<Symbol>& left,
                                     const s_refptr<Symbol>& right, s_str& error) {
  const auto by_left = binary_.find(op);
  if (by_left == binary_.end()) return FailToMatch(op, *left, *right, error);
  s_refptr<Symbol> left_value = Resolve(left);
  if (depth_.IsExhausted()) return {};
  if (!left_value) return FailToMatch(op, *left, *right, error);
  if (HasNoValueYet(*left_value)) return Defer(op, *left, *right);
  const auto* by_right = FindType(by_left->second, *left_value);
  if (!by_right) return FailToMatch(op, *left, *right, error);
  s_refptr<Symbol> right_value = Resolve(right);
  if (depth_.IsExhausted()) return {};
  if (!right_value) return FailToMatch(op, *left, *right, error);
  if (HasNoValueYet(*right_value)) return Defer(op, *left, *right);
  const BinaryOperator* body = FindType(*by_right, *right_value);
  if (!body) return FailToMatch(op, *left, *right, error);
  Remember(op, *left, *right, *body);
  return Invoke(*body, left_value, right_value, error);
}

// Only values that stand for themselves are remembered: a reference is another value next time.
void State::Remember(std::string_view op, const Symbol& left, const Symbol& right,
                     const BinaryOperator& body) {
  const std::size_t known = FindOperator(op);
  if (!left.GetFixedType() || !right.GetFixedType() || known == kOperators) return;
  const auto* in_place = body.target<InPlaceOperator>();
  binary_dispatch_.Remember(known, left.GetFixedType().Get(), right.GetFixedType().Get(),
                            {&body, in_place ? in_place->body : nullptr});
}

[[gnu::noinline]] s_refptr<Symbol> State::Defer(std::string_view op, const Symbol& left,
                                                const Symbol& right) {
  s_str expression = "(";
  expression += TextOf(left);
  expression.Append(")").Append(op).Append("(");
  expression += TextOf(right);
  expression += ')';
  return NewReference(*this, Symbol::NoName(), expression.GetView());
}

// The implementation for an operand, which becomes the value that it stands for; null, and the
// operand as it was, when there is none.
const UnaryOperator* State::SearchUnary(const UnaryRegistry& registry, std::string_view op,
                                        s_refptr<Symbol>& operand) const {
  const auto by_type = registry.find(op);
  if (by_type == registry.end()) return nullptr;
  s_refptr<Symbol> value = Resolve(operand);
  if (!value || depth_.IsExhausted()) return nullptr;
  const UnaryOperator* body = FindType(by_type->second, *value);
  if (body) operand.Swap(value);
  return body;
}

s_refptr<Symbol> State::ApplyRightUnaryOperator(std::string_view op, s_refptr<Symbol> operand,
                                                s_str& error) {
  if (depth_.IsOutside()) {
    return RunOutermost(error, [&] { return ApplyRightUnaryOperator(op, operand, error); });
  }
  const UnaryOperator* body = SearchUnary(right_unary_, op, operand);
  if (body) return Invoke(*body, operand, error);
  return depth_.IsExhausted() ? s_refptr<Symbol>()
                              : FailToMatch(messages::NoRightUnaryMatch, op, *operand, error);
}

s_refptr<Symbol> State::ApplyLeftUnaryOperator(std::string_view op, s_refptr<Symbol> operand,
                                               s_str& error) {
  if (depth_.IsOutside()) {
    return RunOutermost(error, [&] { return ApplyLeftUnaryOperator(op, operand, error); });
  }
  const UnaryOperator* body = SearchUnary(left_unary_, op, operand);
  if (body) return Invoke(*body, operand, error);
  return depth_.IsExhausted() ? s_refptr<Symbol>()
                              : FailToMatch(messages::NoLeftUnaryMatch, op, *operand, error);
}

}  // namespace Quarn

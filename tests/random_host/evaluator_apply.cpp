// Operators on values, and what a value shows of itself. A reference is evaluated anew each time
// that anything is asked of it, so the order of the questions is the order of the calls.
#include "tests/model/model_text.h"
#include "tests/random_host/evaluator.h"

namespace Quarn::random_host {
namespace {

bool IsReference(const ValuePtr& value) { return value->kind == Kind::kReference; }

bool IsNull(const ValuePtr& value) { return IsReference(value) && value->text.empty(); }

std::string WithName(const ValuePtr& value, const std::string& text) {
  return value->name.empty() ? text : value->name + " = " + text;
}

}  // namespace

// An operand is resolved only when there is something left to look up with it: the left one for an
// operator that is known, the right one for a left type that is known.
ValuePtr Evaluator::ApplyBinary(const std::string& op, const ValuePtr& left, const ValuePtr& right,
                                std::string& error) {
  const auto defer = [&] {
    const std::string left_text = OperandText(left);
    const std::string right_text = OperandText(right);
    return NewReference("", "(" + left_text + ")" + op + "(" + right_text + ")");
  };
  const auto by_left = binary_.find(op);
  if (by_left == binary_.end()) return NoMatch(op, left, right, error);
  const ValuePtr left_value = Resolve(left);
  if (!left_value) return NoMatch(op, left, right, error);
  if (IsReference(left_value)) return defer();
  const auto by_right = by_left->second.find(TypeOf(left_value));
  if (by_right == by_left->second.end()) return NoMatch(op, left, right, error);
  const ValuePtr right_value = Resolve(right);
  if (!right_value) return NoMatch(op, left, right, error);
  if (IsReference(right_value)) return defer();
  const auto found = by_right->second.find(TypeOf(right_value));
  if (found == by_right->second.end()) return NoMatch(op, left, right, error);
  const Operator body = found->second;
  return body({left_value, right_value}, error);
}

ValuePtr Evaluator::NoMatch(const std::string& op, const ValuePtr& left, const ValuePtr& right,
                            std::string& error) {
  const std::string left_type = TypeOf(left);
  const std::string right_type = TypeOf(right);
  const std::string left_text = OperandText(left);
  const std::string right_text = OperandText(right);
  return Fail(error, "\tError : No match for operator '" + left_type + " " + op + " " + right_type +
                         "' in :\n\t        \t" + left_text + " " + op + " " + right_text);
}

ValuePtr Evaluator::ApplyUnary(Position position, const std::string& op, const ValuePtr& operand,
                               std::string& error) {
  const auto by_type = unary_[position].find(op);
  if (by_type != unary_[position].end()) {
    const ValuePtr value = Resolve(operand);
    const auto found = value ? by_type->second.find(TypeOf(value)) : by_type->second.end();
    if (found != by_type->second.end()) {
      const Operator body = found->second;
      return body({value}, error);
    }
  }
  const std::string type = TypeOf(operand);
  const std::string text = OperandText(operand);
  const bool before = position == Position::kBefore;
  return Fail(error, "\tError : No match for operator '" +
                         (before ? op + " " + type : type + " " + op) + "' in :\n\t        \t" +
                         (before ? op + " " + text : text + " " + op));
}

std::string Evaluator::OperandText(const ValuePtr& operand) {
  return operand->name.empty() ? TextOf(operand) : "";
}

// One evaluation of a reference that is not null; its messages are dropped.
ValuePtr Evaluator::Follow(const Value& reference) {
  std::string dropped;
  return Evaluate("", reference.text, dropped, false);
}

// Null for a null reference, a null reference for one that fails.
ValuePtr Evaluator::Resolve(const ValuePtr& value) {
  if (!IsReference(value)) return value;
  if (IsNull(value)) return nullptr;
  const Level level(*this);
  const ValuePtr current = Follow(*value);
  if (!current) return NewReference("", "");
  return IsNull(current) ? current : Resolve(current);
}

std::string Evaluator::TypeOf(const ValuePtr& value) {
  switch (value->kind) {
    case Kind::kSymbol:
      return "Symbol";
    case Kind::kScalar:
      return "Scalar";
    case Kind::kVector:
      return "Vector";
    case Kind::kHost:
      return random_host::TypeOf(*value->type, value->text);
    case Kind::kReference:
      break;
  }
  const Level level(*this);
  const ValuePtr current = IsNull(value) ? nullptr : Follow(*value);
  return current ? TypeOf(current) : "Reference";
}

std::string Evaluator::TextOf(const ValuePtr& value) {
  switch (value->kind) {
    case Kind::kSymbol:
      return value->text;
    case Kind::kScalar:
      return WithName(value, model::NumberText(value->number));
    case Kind::kHost:
      return random_host::TextOf(*value->type, value->name, value->text);
    case Kind::kVector: {
      std::string text;
      for (const ValuePtr& element : value->elements) {
        text += (text.empty() ? "" : ", ") + TextOf(element);
      }
      return WithName(value, "<" + text + ">");
    }
    case Kind::kReference:
      break;
  }
  if (IsNull(value)) return "null";
  const Level level(*this);
  const ValuePtr current = Follow(*value);
  return WithName(value, current ? TextOf(current) : value->text);
}

}  // namespace Quarn::random_host

#include <memory>
#include <string>
#include <vector>

#include "tests/model/model.h"
#include "tests/model/model_frame.h"
#include "tests/model/model_text.h"

namespace Quarn::model {
namespace {

std::shared_ptr<Value> NewValue(Kind kind, const std::string& name) {
  auto value = std::make_shared<Value>();
  value->kind = kind;
  value->name = name;
  value->value_text = name;
  return value;
}

std::string WithName(const ValuePtr& value, const std::string& text) {
  return value->name.empty() ? text : value->name + " = " + text;
}

}  // namespace

ValuePtr NewSymbol(const std::string& name) { return NewValue(Kind::kSymbol, name); }

ValuePtr NewScalar(const std::string& name, double number) {
  const auto value = NewValue(Kind::kScalar, name);
  value->number = number;
  return value;
}

ValuePtr NewVector(const std::string& name, const std::vector<ValuePtr>& elements) {
  const auto value = NewValue(Kind::kVector, name);
  value->elements = elements;
  return value;
}

ValuePtr NewReference(const std::string& name, const std::string& expression) {
  const auto value = NewValue(Kind::kReference, name);
  value->expression = expression;
  return value;
}

ValuePtr Renamed(const ValuePtr& value, const std::string& name) {
  const auto renamed = std::make_shared<Value>(*value);
  renamed->name = name;
  return renamed;
}

std::string Model::TypeOf(const ValuePtr& value) {
  if (!IsReference(value) || value->expression.empty()) return OwnType(value->kind);
  const Frame frame(*this, "type ", value->expression);
  const ValuePtr current = Follow(value);
  return current ? TypeOf(current) : "Reference";
}

std::string Model::TextOf(const ValuePtr& value) {
  switch (value->kind) {
    case Kind::kSymbol:
      return value->value_text;
    case Kind::kScalar:
      return WithName(value, NumberText(value->number));
    case Kind::kVector:
      return WithName(value, VectorText(value));
    case Kind::kReference:
      break;
  }
  if (value->expression.empty()) return "null";
  const Frame frame(*this, "text ", value->expression);
  const ValuePtr current = Follow(value);
  return WithName(value, current ? TextOf(current) : value->expression);
}

std::string Model::VectorText(const ValuePtr& value) {
  std::string text;
  try {
    for (const ValuePtr& element : value->elements) {
      const std::string element_text = TextOf(element);
      const Frame frame(*this, "", element_text);
      text += element_text + ", ";
    }
  } catch (const TooDeep&) {
    // How much of the text would give way to an expression is nobody's promise.
    throw Outside("a ring among the elements");
  }
  if (!text.empty()) text.erase(text.size() - 2);
  return "<" + text + ">";
}

// One evaluation of a reference that is not null; its messages are dropped.
ValuePtr Model::Follow(const ValuePtr& reference) {
  const Frame frame(*this, "value ", reference->expression);
  std::string dropped;
  return Evaluate("", reference->expression, dropped, false);
}

// Null for a null reference, a null reference for one that fails, else what the operators see.
ValuePtr Model::Resolve(const ValuePtr& value) {
  if (!IsReference(value)) return value;
  if (value->expression.empty()) return nullptr;
  const Frame frame(*this, "resolved ", value->expression);
  const ValuePtr current = Follow(value);
  if (!current) return NewReference("", "");
  if (IsReference(current) && !current->expression.empty()) return Resolve(current);
  return current;
}

// How often a ring draws before it is given up depends on the stack, so nothing can be said about
// the draws that follow.
void Model::MeetRing() const {
  if (rings_ == Rings::kOutside) throw Outside("a ring");
  if (draws_ > 0) throw Outside("a ring that draws");
  throw TooDeep();
}

}  // namespace Quarn::model

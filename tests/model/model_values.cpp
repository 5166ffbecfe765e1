#include <algorithm>
#include <memory>
#include <string>
#include <utility>
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
  const ValuePtr current = Follow(value).value;
  return current ? OwnType(current->kind) : "Reference";
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
  return value->expression.empty() ? "null" : WithName(value, ReferenceText(value));
}

std::string Model::VectorText(const ValuePtr& value) {
  std::string text;
  for (const ValuePtr& element : value->elements) {
    const std::string element_text = ElementText(element);
    const Frame frame(*this, element_text);
    text += element_text + ", ";
  }
  if (!text.empty()) text.erase(text.size() - 2);
  return "<" + text + ">";
}

// Only what depends on a ring is touched by it.
std::string Model::ElementText(const ValuePtr& element) {
  const std::vector<std::string> written = written_;
  const bool shows_rings = shows_rings_;
  try {
    return TextOf(element);
  } catch (const Ring&) {
    if (!shows_rings || !IsReference(element)) throw;
    ForgetRing();
    written_ = written;
    shows_rings_ = true;
    return element->expression;
  }
}

// Where the value holds the reference itself, that shows its expression.
std::string Model::ReferenceText(const ValuePtr& reference) {
  const std::string& expression = reference->expression;
  if (std::find(written_.begin(), written_.end(), expression) != written_.end()) return expression;
  const Followed followed = Follow(reference);
  if (!followed.value) return followed.failed;
  written_.push_back(expression);
  const std::string text = TextOf(followed.value);
  written_.pop_back();
  return text;
}

// One evaluation of a reference that is not null, and of those that it leads to; messages are
// dropped.
Model::Followed Model::Follow(const ValuePtr& reference) {
  const std::string& expression = reference->expression;
  const Frame frame(*this, expression);
  if (std::find(evaluated_.begin(), evaluated_.end(), expression) != evaluated_.end()) {
    throw Ring{expression};
  }
  evaluated_.push_back(expression);
  const bool showed_rings = std::exchange(shows_rings_, false);
  std::string dropped;
  Followed followed = {Evaluate("", expression, dropped, false), expression};
  if (followed.value && IsReference(followed.value) && !followed.value->expression.empty()) {
    followed = Follow(followed.value);
  }
  shows_rings_ = showed_rings;
  evaluated_.pop_back();
  return followed;
}

// Null for a null reference, a null reference for one that fails, else what the operators see.
ValuePtr Model::Resolve(const ValuePtr& value) {
  if (!IsReference(value)) return value;
  if (value->expression.empty()) return nullptr;
  const ValuePtr current = Follow(value).value;
  return current ? current : NewReference("", "");
}

}  // namespace Quarn::model

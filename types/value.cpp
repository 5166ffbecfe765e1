#include "types/value.h"

#include "interpreter/builtins.h"
#include "types/element_types.h"
#include "types/lift.h"
#include "types/reference.h"
#include "types/vector.h"

namespace Quarn {
namespace {

// What stands for the value, if that is of the type; null otherwise. The type's name is known by
// its address, which no other class can have.
s_refptr<Symbol> ResolveAs(const char* type, const s_refptr<Symbol>& value) {
  if (!value) return {};
  s_refptr<Symbol> resolved = Resolve(value);
  return resolved && resolved->GetFixedType().Get() == type ? resolved : s_refptr<Symbol>();
}

// The value itself, or a copy that has no name.
s_refptr<Symbol> WithoutName(const s_refptr<Symbol>& value) {
  if (value->GetName().IsEmpty()) return value;
  s_refptr<Symbol> unnamed = value->Clone();
  unnamed->SetName(Symbol::NoName());
  return unnamed;
}

}  // namespace

std::optional<double> ToNumber(const s_refptr<Symbol>& value) {
  const s_refptr<Symbol> scalar = ResolveAs(Scalar::kType, value);
  if (!scalar) return std::nullopt;
  return NumberOf(*scalar);
}

std::optional<std::vector<s_refptr<Symbol>>> ToElements(const s_refptr<Symbol>& value) {
  const s_refptr<Symbol> vector = ResolveAs(Vector::kType, value);
  if (!vector) return std::nullopt;
  const Values& elements = static_cast<const Vector&>(*vector).GetElements();
  return std::vector<s_refptr<Symbol>>(elements.begin(), elements.end());
}

std::optional<std::vector<double>> ToNumbers(const s_refptr<Symbol>& value) {
  const auto elements = ToElements(value);
  if (!elements) return std::nullopt;
  std::vector<double> numbers;
  for (const s_refptr<Symbol>& element : *elements) {
    const std::optional<double> number = ToNumber(element);
    if (!number) return std::nullopt;
    numbers.push_back(*number);
  }
  return numbers;
}

std::string ToText(const s_refptr<Symbol>& value) {
  return value ? WithoutName(value)->ToString().Take() : std::string();
}

std::string GetTypeName(const s_refptr<Symbol>& value) {
  return value ? value->GetType().Take() : std::string();
}

Result EvaluateReference(const s_refptr<Symbol>& value) {
  const Reference* reference = value ? value->AsReference() : nullptr;
  if (!reference) return {value, {}};
  s_str error;
  s_refptr<Symbol> result = reference->EvaluateThrough(error);
  return {std::move(result), error.Take()};
}

s_refptr<Symbol> FromNumber(double number) { return NewNumber(number); }

s_refptr<Symbol> FromElements(const std::vector<s_refptr<Symbol>>& elements) {
  const s_refptr<Values> unnamed(new Values);
  ElementTypes types;
  s_str unheard;
  for (const s_refptr<Symbol>& element : elements) {
    if (!element || !types.Accept(*element, unheard)) return {};
    unnamed->PushBack(WithoutName(element));
  }
  if (!types.AcceptReferences(*unnamed, unheard)) return {};
  return s_refptr<Symbol>(new Vector(Symbol::NoName(), unnamed));
}

s_refptr<Symbol> FromNumbers(const std::vector<double>& numbers) {
  const s_refptr<Values> elements(new Values);
  for (double number : numbers) elements->PushBack(NewNumber(number));
  return s_refptr<Symbol>(new Vector(Symbol::NoName(), elements));
}

}  // namespace Quarn

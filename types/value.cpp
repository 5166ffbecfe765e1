#include "types/value.h"

#include "interpreter/core.h"
#include "interpreter/element_types.h"
#include "interpreter/state.h"
#include "types/lift.h"
#include "types/reference.h"
#include "types/vector.h"

namespace Quarn {
namespace {

// What stands for the value, if that is of the kind; null otherwise.
s_refptr<Symbol> ResolveAs(Symbol::Kind kind, const s_refptr<Symbol>& value) {
  const s_refptr<Symbol> resolved = EvaluateReference(value).value;
  return resolved && resolved->GetKind() == kind ? resolved : s_refptr<Symbol>();
}

// The value itself, or a copy that has no name.
s_refptr<Symbol> WithoutName(const s_refptr<Symbol>& value) {
  if (value->GetName().IsEmpty()) return value;
  s_refptr<Symbol> unnamed = value->Clone();
  unnamed->SetName(Symbol::NoName());
  return unnamed;
}

bool AreOfOneType(const Elements& elements) {
  ElementTypes types;
  s_str unheard;
  for (std::size_t i = 0; i < elements.GetSize(); ++i) {
    if (!types.Accept(elements[i].GetFullType(), unheard)) return false;
  }
  for (std::size_t i = 0; types.HasReferences() && i < elements.GetSize(); ++i) {
    if (elements[i].GetFullType().GetView() != kReferenceType) continue;
    if (!types.AcceptReference(elements[i].GetType(), unheard)) return false;
  }
  return true;
}

}  // namespace

std::optional<double> ToNumber(const s_refptr<Symbol>& value) {
  const s_refptr<Symbol> scalar = ResolveAs(Symbol::Kind::kNumber, value);
  if (!scalar) return std::nullopt;
  return NumberOf(*scalar);
}

std::optional<std::vector<s_refptr<Symbol>>> ToElements(const s_refptr<Symbol>& value) {
  const s_refptr<Symbol> vector = ResolveAs(Symbol::Kind::kList, value);
  if (!vector) return std::nullopt;
  const Values& elements = static_cast<const Vector&>(*vector).GetElements();
  return std::vector<s_refptr<Symbol>>(elements.begin(), elements.end());
}

std::optional<std::vector<double>> ToNumbers(const s_refptr<Symbol>& value) {
  const s_refptr<Symbol> vector = ResolveAs(Symbol::Kind::kList, value);
  if (!vector) return std::nullopt;
  const Elements& elements = static_cast<const Vector&>(*vector).GetList();
  if (elements.AreNumbers()) return elements.GetNumbers();
  std::vector<double> numbers;
  for (const s_refptr<Symbol>& element : elements.GetObjects()) {
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
  if (!value || value->GetKind() != Symbol::Kind::kReference) return {value, {}};
  const CellPtr cell = GetCell(*value);
  if (!cell) return {{}, messages::EmptySymbol().Take(), {}, Failure::kForm};
  if (!cell->GetCells()) return {};
  return cell->GetCells()->GetMachine().Evaluate(*cell);
}

Result EvaluateReference(const Result& result) {
  return result ? EvaluateReference(result.value) : result;
}

s_refptr<Symbol> FromNumber(double number) { return NewNumber(number); }

s_refptr<Symbol> FromReference(State& state, std::string_view expression) {
  return state.GetCore().machine.NewReference(Symbol::NoName(), expression);
}

s_refptr<Symbol> FromElements(const std::vector<s_refptr<Symbol>>& elements) {
  Values values;
  for (const s_refptr<Symbol>& element : elements) {
    if (!element) return {};
    values.PushBack(WithoutName(element));
  }
  const s_refptr<Elements> unnamed(new Elements(values));
  if (!AreOfOneType(*unnamed)) return {};
  return s_refptr<Symbol>(new Vector(Symbol::NoName(), unnamed));
}

s_refptr<Symbol> FromNumbers(const std::vector<double>& numbers) {
  const s_refptr<Elements> elements(new Elements(numbers));
  return s_refptr<Symbol>(new Vector(Symbol::NoName(), elements));
}

}  // namespace Quarn

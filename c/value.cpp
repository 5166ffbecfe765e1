// Values in C.
#include "types/value.h"

#include <algorithm>
#include <vector>

#include "c/handles.h"
#include "types/vector.h"

using Quarn::Elements;
using Quarn::Guarded;
using Quarn::HandOut;
using Quarn::Result;
using Quarn::s_refptr;
using Quarn::Symbol;

mirlow_status Quarn::HandOut(s_refptr<Symbol> value, mirlow_value** out) {
  *out = new mirlow_value{std::move(value), {}, {}};
  return MIRLOW_OK;
}

namespace {

// Keeps a text for who asked; null when there is no memory for it.
template <class Body>
const char* Keep(std::string& kept, const Body& body) {
  const mirlow_status status = Guarded([&] {
    kept = body();
    return MIRLOW_OK;
  });
  return status == MIRLOW_OK ? kept.c_str() : nullptr;
}

// The vector that the value is, or that a reference comes to; null when there is none.
s_refptr<Symbol> FindVector(const mirlow_value& value) {
  const s_refptr<Symbol> found = Quarn::EvaluateReference(value.value).value;
  return found && found->GetKind() == Symbol::Kind::kList ? found : s_refptr<Symbol>();
}
const Elements& GetList(const Symbol& vector) {
  return static_cast<const Quarn::Vector&>(vector).GetList();
}

}  // namespace

void mirlow_release(mirlow_value* value) { delete value; }

mirlow_kind mirlow_get_kind(const mirlow_value* value) {
  if (!value) return MIRLOW_OTHER;
  switch (value->value->GetKind()) {
    case Symbol::Kind::kNumber:
      return MIRLOW_NUMBER;
    case Symbol::Kind::kList:
      return MIRLOW_VECTOR;
    case Symbol::Kind::kReference:
      return MIRLOW_REFERENCE;
    case Symbol::Kind::kOther:
      break;
  }
  return MIRLOW_OTHER;
}

const char* mirlow_text(mirlow_value* value) {
  if (!value) return "";
  return Keep(value->text, [&] { return Quarn::ToText(value->value); });
}

const char* mirlow_type(mirlow_value* value) {
  if (!value) return "";
  return Keep(value->type, [&] { return Quarn::GetTypeName(value->value); });
}

// ---- Out ----

mirlow_status mirlow_to_number(const mirlow_value* value, double* number) {
  if (!value || !number) return MIRLOW_BAD_ARGUMENT;
  return Guarded([&] {
    const std::optional<double> read = Quarn::ToNumber(value->value);
    if (read) *number = *read;
    return read ? MIRLOW_OK : MIRLOW_WRONG_TYPE;
  });
}

mirlow_status mirlow_count(const mirlow_value* value, size_t* count) {
  if (!value || !count) return MIRLOW_BAD_ARGUMENT;
  return Guarded([&] {
    const s_refptr<Symbol> vector = FindVector(*value);
    if (vector) *count = GetList(*vector).GetSize();
    return vector ? MIRLOW_OK : MIRLOW_WRONG_TYPE;
  });
}

mirlow_status mirlow_element(const mirlow_value* value, size_t index, mirlow_value** element) {
  if (!value || !element) return MIRLOW_BAD_ARGUMENT;
  return Guarded([&] {
    const s_refptr<Symbol> vector = FindVector(*value);
    if (!vector) return MIRLOW_WRONG_TYPE;
    const Elements& elements = GetList(*vector);
    return index < elements.GetSize() ? HandOut(elements[index].Box(), element) : MIRLOW_NOT_FOUND;
  });
}

mirlow_status mirlow_to_numbers(const mirlow_value* value, double* numbers, size_t count) {
  if (!value || (!numbers && count)) return MIRLOW_BAD_ARGUMENT;
  return Guarded([&] {
    const auto read = Quarn::ToNumbers(value->value);
    if (!read) return MIRLOW_WRONG_TYPE;
    if (read->size() != count) return MIRLOW_BAD_ARGUMENT;
    std::copy(read->begin(), read->end(), numbers);
    return MIRLOW_OK;
  });
}

mirlow_status mirlow_follow(mirlow_state* state, const mirlow_value* reference,
                            mirlow_value** value) {
  if (!state || !reference || !value) return MIRLOW_BAD_ARGUMENT;
  return Guarded([&] {
    Result result = Quarn::EvaluateReference(reference->value);
    return result ? HandOut(std::move(result.value), value) : state->Fail(std::move(result));
  });
}

// ---- In ----

mirlow_status mirlow_from_number(double number, mirlow_value** value) {
  if (!value) return MIRLOW_BAD_ARGUMENT;
  return Guarded([&] { return HandOut(Quarn::FromNumber(number), value); });
}

mirlow_status mirlow_from_numbers(const double* numbers, size_t count, mirlow_value** value) {
  if ((!numbers && count) || !value) return MIRLOW_BAD_ARGUMENT;
  return Guarded([&] {
    return HandOut(Quarn::FromNumbers(std::vector<double>(numbers, numbers + count)), value);
  });
}

mirlow_status mirlow_from_elements(const mirlow_value* const* elements, size_t count,
                                   mirlow_value** value) {
  if ((!elements && count) || !value) return MIRLOW_BAD_ARGUMENT;
  if (std::find(elements, elements + count, nullptr) != elements + count)
    return MIRLOW_BAD_ARGUMENT;
  return Guarded([&] {
    std::vector<s_refptr<Symbol>> values;
    values.reserve(count);
    for (size_t i = 0; i < count; ++i) values.push_back(elements[i]->value);
    s_refptr<Symbol> vector = Quarn::FromElements(values);
    return vector ? HandOut(std::move(vector), value) : MIRLOW_WRONG_TYPE;
  });
}

mirlow_status mirlow_from_reference(mirlow_state* state, const char* expression,
                                    mirlow_value** value) {
  if (!state || !expression || !value) return MIRLOW_BAD_ARGUMENT;
  return Guarded([&] { return HandOut(Quarn::FromReference(state->state, expression), value); });
}

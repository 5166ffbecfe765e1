#include "types/vector.h"

#include <utility>

#include "interpreter/messages.h"
#include "interpreter/state.h"
#include "interpreter/text_writer.h"
#include "types/lift.h"
#include "types/vector_math.h"
#include "utils/s_str_convert.h"

namespace Quarn {
namespace {

s_refptr<Symbol> Create(const s_str& name) { return s_refptr<Symbol>(new Vector(name)); }

s_bool IsLiteral(std::string_view text) { return text.starts_with('<') && text.ends_with('>'); }

s_refptr<Symbol> CreateList(const s_str& name, s_refptr<Elements> elements) {
  return s_refptr<Symbol>(new Vector(name, std::move(elements)));
}

}  // namespace

void Vector::Register(State& state) {
  state.AddType({.name = kType,
                 .create = Create,
                 .is_literal = IsLiteral,
                 .create_from = CreateFrom,
                 .literal_starts = "<",
                 .create_list = CreateList});
  state.AddBinary({
      {Scalar::kType, "*", kType,         On(state, ScaleFromLeft)   },
      {kType,         "*", Scalar::kType, On(state, ScaleFromRight)  },
      {kType,         "+", kType,         On(state, AddElements)     },
      {kType,         "-", kType,         On(state, SubtractElements)},
      {kType,         "^", kType,         On(state, CrossProduct)    },
  });
  // A number is picked out without an object for it.
  BinaryRow select{kType, "[]", Scalar::kType, On(state, SelectElement)};
  select.on_operands = SelectOperand;
  state.AddBinary({select});
  state.AddRightUnary({
      {"-", kType, On(state, NegateElements)}
  });
  state.AddRightUnary({
      {"+", kType, Copy}
  });  // keeps the operand's name
}

s_refptr<Symbol> Vector::CreateFrom(State& state, const s_str& name, const s_str& text,
                                    s_str& error) {
  if (IsLiteral(text.GetView())) return state.ParseSymbol(name, text, error, false);
  AddError(error, messages::NoOperatorFound(text.GetView()));
  return {};
}

// ---- The end of a vector ----

s_refptr<Elements>& Vector::ElementsOf(Symbol& vector) {
  return static_cast<Vector&>(vector).elements_;
}

// Do the elements go when this value does?
bool Vector::OwnsElementsAlone(const s_refptr<Symbol>& value) {
  return value.GetCount() == s_uint(1U) && value->GetKind() == Kind::kList &&
         ElementsOf(*value).GetCount() == s_uint(1U);
}

// Vectors in vectors may be nested deeper than any expression that made them, one line at a time.
// Destruction must not recurse, nor allocate, so it descends by pointer reversal: while an inner
// vector is emptied, it holds the elements that it was found among, and its place there holds the
// vector that was being emptied before.
Vector::~Vector() {
  s_refptr<Elements> elements = std::move(elements_);
  s_refptr<Symbol> innermost;
  while (elements && elements.GetCount() == s_uint(1U)) {
    elements->ForgetValues();
    if (elements->AreNumbers()) {
      if (!innermost) return;
      const s_refptr<Symbol> emptied = std::move(innermost);
      elements = std::move(ElementsOf(*emptied));
      innermost = std::move(elements->GetObjects().back());
    } else if (s_refptr<Symbol>& last = elements->GetObjects().back(); OwnsElementsAlone(last)) {
      s_refptr<Elements> inner = std::move(ElementsOf(*last));
      std::swap(innermost, last);
      ElementsOf(*innermost) = std::exchange(elements, std::move(inner));
      continue;
    }
    elements->GetObjects().pop_back();
  }
}

// ---- Its text ----

void Vector::Write(TextWriter& out) const {
  out.AppendNameOf(*this);
  out.AppendList("<", elements_, ", ", ">");
}

s_str Vector::ToString() const { return WriteToText(*this); }

s_str Vector::GetFullType() const { return ToText(GetSize()) + "-" + kType; }

}  // namespace Quarn

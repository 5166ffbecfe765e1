#include "types/vector.h"

#include <utility>
#include <vector>

#include "interpreter/state.h"
#include "types/lift.h"
#include "types/vector_math.h"
#include "utils/s_str_convert.h"

namespace Quarn {
namespace {

s_refptr<Symbol> Create(const s_str& name) { return s_refptr<Symbol>(new Vector(name)); }

s_bool TestLiteral(const s_str& text) { return Vector::IsLiteral(text.GetView()); }

bool BuildInPlace(State& state, const s_str& name, const Piece& piece, s_str& error,
                  s_refptr<Symbol>&, s_refptr<Symbol>& value) {
  if (!Vector::IsLiteral(piece.GetText())) return false;
  value = Vector::CreateFromPiece(state, name, piece, error);
  return true;
}

bool IsVector(const Symbol& value) { return value.GetFixedType().Get() == Vector::kType; }

s_refptr<Symbol>& LastOf(Values& elements) { return elements[elements.GetSize() - s_uint(1U)]; }

}  // namespace

s_refptr<Values>& Vector::ElementsOf(Symbol& vector) {
  return static_cast<Vector&>(vector).elements_;
}

// Do the elements go when this value does?
bool Vector::OwnsElementsAlone(const s_refptr<Symbol>& value) {
  return value.GetCount() == 1U && IsVector(*value) && ElementsOf(*value).GetCount() == 1U;
}

void Vector::Register(State& state) {
  state.AddType({kType, Create, TestLiteral, CreateFrom, BuildInPlace, "<"});
  state.AddBinary({
      {Scalar::kType, "*",  kType,         On(state, ScaleFromLeft)   },
      {kType,         "*",  Scalar::kType, On(state, ScaleFromRight)  },
      {kType,         "+",  kType,         On(state, AddElements)     },
      {kType,         "-",  kType,         On(state, SubtractElements)},
      {kType,         "^",  kType,         On(state, CrossProduct)    },
      {kType,         "[]", Scalar::kType, On(state, SelectElement)   },
  });
  state.AddRightUnary({
      {"+",    kType,    Copy           }, // keeps the operand's name
      { "-", kType, On(state, NegateElements)},
  });
}

// Vectors in vectors may be nested deeper than any expression that made them, one line at a time.
// So neither printing nor letting go of them recurses. Nor may letting go ask for memory: while an
// inner vector is emptied, it holds the elements that it was found among, and its place there holds
// the vector that was being emptied before.
Vector::~Vector() {
  s_refptr<Values> elements = std::move(elements_);
  s_refptr<Symbol> innermost;
  while (elements && elements.GetCount() == 1U) {
    if (elements->IsEmpty()) {
      if (!innermost) return;
      const s_refptr<Symbol> emptied = std::move(innermost);
      elements = std::move(ElementsOf(*emptied));
      innermost = std::move(LastOf(*elements));
    } else if (s_refptr<Symbol>& last = LastOf(*elements); OwnsElementsAlone(last)) {
      s_refptr<Values> inner = std::move(ElementsOf(*last));
      std::swap(innermost, last);
      ElementsOf(*innermost) = std::exchange(elements, std::move(inner));
      continue;
    }
    elements->PopBack();
  }
}

void Vector::AppendTo(s_str& text) const {
  struct Level {
    const Values* elements;
    unsigned int next;
  };
  std::vector<Level> levels;
  const auto open = [&](const Vector& vector) {
    if (!vector.GetName().IsEmpty()) text.Append(vector.GetName().GetView()).Append(" = ");
    text += '<';
    levels.push_back({&vector.GetElements(), 0});
  };
  open(*this);
  while (!levels.empty()) {
    Level& level = levels.back();
    if (level.next == level.elements->GetSize().Get()) {
      text += '>';
      levels.pop_back();
      continue;
    }
    if (level.next > 0) text.Append(", ");
    const Symbol& element = *(*level.elements)[level.next++];
    IsVector(element) ? open(static_cast<const Vector&>(element)) : element.AppendTo(text);
  }
}

s_str Vector::ToString() const {
  s_str text;
  AppendTo(text);
  return text;
}

s_str Vector::GetFullType() const { return ToText(GetSize()) + "-" + kType; }

}  // namespace Quarn

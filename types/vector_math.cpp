#include "types/vector_math.h"

#include <chrono>
#include <cmath>
#include <thread>

#include "interpreter/messages.h"
#include "interpreter/state.h"
#include "types/lift.h"
#include "types/vector.h"

namespace Quarn {
namespace {

const Values& ElementsOf(const s_refptr<Symbol>& vector) {
  return static_cast<const Vector&>(*vector).GetElements();
}

// The vector of what `f` makes of each element; null when it fails for one. Elements may be vectors
// in their turn, and so on down.
template <class F>
s_refptr<Symbol> MapElements(State& state, const Values& elements, F f) {
  const Depth::Level level(state.GetDepth());
  if (!level.IsGranted()) return {};
  s_refptr<Values> results(new Values);
  for (const s_refptr<Symbol>& element : elements) {
    s_refptr<Symbol> result = f(element);
    if (!result) return {};
    results->PushBack(std::move(result));
  }
  return s_refptr<Symbol>(new Vector(Symbol::NoName(), std::move(results)));
}

s_refptr<Symbol> CombineElements(State& state, std::string_view op, std::string_view verb,
                                 const Values& left, const Values& right, s_str& error) {
  if (left.GetSize() != right.GetSize()) {
    AddError(error, messages::DifferentLengths(verb, left.GetSize(), right.GetSize()));
    return {};
  }
  auto other = right.begin();
  return MapElements(state, left, [&](const s_refptr<Symbol>& element) {
    return state.ApplyBinaryOperator(op, element, *other++, error);
  });
}

// One component of the cross product: a * b - c * d.
s_refptr<Symbol> DifferenceOfProducts(State& state, const s_refptr<Symbol>& a,
                                      const s_refptr<Symbol>& b, const s_refptr<Symbol>& c,
                                      const s_refptr<Symbol>& d, s_str& error) {
  s_refptr<Symbol> first = state.ApplyBinaryOperator("*", a, b, error);
  if (!first) return {};
  s_refptr<Symbol> second = state.ApplyBinaryOperator("*", c, d, error);
  if (!second) return {};
  return state.ApplyBinaryOperator("-", std::move(first), std::move(second), error);
}

// GCOVR_EXCL_START: what never returns is killed, and then writes no counts.
// What was printed before must be seen meanwhile.
[[noreturn]] void NeverReturn(State& state) {
  state.Flush();
  while (true) std::this_thread::sleep_for(std::chrono::hours(1));
}
// GCOVR_EXCL_STOP

// The index within `size` elements that a number selects. REQUIRES: size is not 0, and the number
// is not infinite.
unsigned int WrapIndex(double index, unsigned int size) {
  if (std::isnan(index)) return 0;
  // The remainder is exact, however large the number.
  const double remainder = std::fmod(std::round(index), size);
  return static_cast<unsigned int>(remainder < 0 ? remainder + size : remainder);
}

}  // namespace

s_refptr<Symbol> ScaleFromLeft(State& state, const s_refptr<Symbol>& scalar,
                               const s_refptr<Symbol>& vector, s_str& error) {
  return MapElements(state, ElementsOf(vector), [&](const s_refptr<Symbol>& element) {
    return state.ApplyBinaryOperator("*", scalar, element, error);
  });
}

s_refptr<Symbol> ScaleFromRight(State& state, const s_refptr<Symbol>& vector,
                                const s_refptr<Symbol>& scalar, s_str& error) {
  return MapElements(state, ElementsOf(vector), [&](const s_refptr<Symbol>& element) {
    return state.ApplyBinaryOperator("*", element, scalar, error);
  });
}

s_refptr<Symbol> AddElements(State& state, const s_refptr<Symbol>& left,
                             const s_refptr<Symbol>& right, s_str& error) {
  return CombineElements(state, "+", "add", ElementsOf(left), ElementsOf(right), error);
}

s_refptr<Symbol> SubtractElements(State& state, const s_refptr<Symbol>& left,
                                  const s_refptr<Symbol>& right, s_str& error) {
  return CombineElements(state, "-", "substract", ElementsOf(left), ElementsOf(right), error);
}

s_refptr<Symbol> NegateElements(State& state, const s_refptr<Symbol>& vector, s_str& error) {
  return MapElements(state, ElementsOf(vector), [&](const s_refptr<Symbol>& element) {
    return state.ApplyRightUnaryOperator("-", element, error);
  });
}

s_refptr<Symbol> CrossProduct(State& state, const s_refptr<Symbol>& left,
                              const s_refptr<Symbol>& right, s_str& error) {
  const Values& a = ElementsOf(left);
  const Values& b = ElementsOf(right);
  constexpr unsigned int kLength = 3;
  if (a.GetSize() != s_uint(kLength) || b.GetSize() != s_uint(kLength)) {
    AddError(error, messages::OnlyFor3Vectors());
    return {};
  }
  const Depth::Level level(state.GetDepth());
  if (!level.IsGranted()) return {};
  s_refptr<Values> components(new Values);
  for (unsigned int i = 0; i < kLength; ++i) {
    const unsigned int j = (i + 1) % kLength;
    const unsigned int k = (i + 2) % kLength;
    s_refptr<Symbol> component = DifferenceOfProducts(state, a[j], b[k], a[k], b[j], error);
    if (!component) return {};
    components->PushBack(std::move(component));
  }
  return s_refptr<Symbol>(new Vector(Symbol::NoName(), std::move(components)));
}

s_refptr<Symbol> SelectElement(State& state, const s_refptr<Symbol>& vector,
                               const s_refptr<Symbol>& index, s_str& error) {
  const Values& elements = ElementsOf(vector);
  if (elements.IsEmpty()) {
    AddError(error, messages::CannotIndexEmpty());
    return {};
  }
  const double number = NumberOf(*index);
  if (std::isinf(number)) NeverReturn(state);  // GCOVR_EXCL_LINE: as above
  s_refptr<Symbol> element = elements[WrapIndex(number, elements.GetSize().Get())]->Clone();
  element->SetName(Symbol::NoName());
  return element;
}

}  // namespace Quarn

#include "types/vector_math.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <thread>

#include "interpreter/core.h"
#include "interpreter/messages.h"
#include "interpreter/state.h"
#include "types/lift.h"
#include "types/vector.h"
#include "utils/s_str_convert.h"

namespace Quarn {
namespace {

const Elements& ElementsOf(const s_refptr<Symbol>& vector) {
  return static_cast<const Vector&>(*vector).GetList();
}

s_uint ToUint(std::size_t size) { return static_cast<unsigned int>(size); }

// What an operator does to plain numbers; null when that needs objects.
BinaryOnNumbers FindOnNumbers(State& state, std::string_view op) {
  return state.GetCore().registries.GetOnNumbers(FindOperator(op));
}

// An element as an object; and the way back. Both are kept out of the recursion below, where their
// temporaries would take stack at every level.
[[gnu::noinline]] s_refptr<Symbol> GetObject(const Elements& elements, std::size_t index) {
  return elements[index].Take();
}
[[gnu::noinline]] void Add(Elements& elements, s_refptr<Symbol> element) {
  elements.Add(Operand(std::move(element)));
}
[[gnu::noinline]] s_refptr<Symbol> NewVector(s_refptr<Elements> elements) {
  return s_refptr<Symbol>(new Vector(Symbol::NoName(), std::move(elements)));
}

// The vector of what `f` makes of each index; null when it fails for one. Elements may be vectors
// in their turn, and so on down the stack.
template <class F>
s_refptr<Symbol> MakeElements(State& state, std::size_t size, F f) {
  const s_refptr<Elements> results(new Elements);
  for (std::size_t i = 0; i < size; ++i) {
    s_refptr<Symbol> result = state.Spend(1) ? f(i) : s_refptr<Symbol>();
    if (!result) return {};
    Add(*results, std::move(result));
  }
  return NewVector(results);
}

// The same on numbers, which fails only when it has to end.
template <class F>
s_refptr<Symbol> MakeNumbers(State& state, std::size_t size, F f) {
  constexpr std::size_t kBlock = 4096;
  std::vector<double> results(size);
  for (std::size_t begin = 0; begin < size; begin += kBlock) {
    const std::size_t end = std::min(size, begin + kBlock);
    if (!state.Spend(end - begin)) return {};
    for (std::size_t i = begin; i < end; ++i) results[i] = f(i);
  }
  return NewVector(s_refptr<Elements>(new Elements(std::move(results))));
}

s_refptr<Symbol> CombineElements(State& state, std::string_view op, std::string_view verb,
                                 const Elements& left, const Elements& right, s_str& error) {
  const std::size_t size = left.GetSize();
  if (size != right.GetSize()) {
    AddError(error, messages::DifferentLengths(verb, ToUint(size), ToUint(right.GetSize())));
    return {};
  }
  const BinaryOnNumbers on_numbers = FindOnNumbers(state, op);
  if (on_numbers && left.AreNumbers() && right.AreNumbers()) {
    const double* const a = left.GetNumbers().data();
    const double* const b = right.GetNumbers().data();
    return MakeNumbers(state, size, [&](std::size_t i) { return on_numbers(a[i], b[i]); });
  }
  return MakeElements(state, size, [&](std::size_t i) {
    return state.ApplyBinaryOperator(op, GetObject(left, i), GetObject(right, i), error);
  });
}

// One component of the cross product: a * b - c * d.
s_refptr<Symbol> DifferenceOfProducts(State& state, const Operand& a, const Operand& b,
                                      const Operand& c, const Operand& d, s_str& error) {
  s_refptr<Symbol> first = state.ApplyBinaryOperator("*", a.Box(), b.Box(), error);
  if (!first) return {};
  s_refptr<Symbol> second = state.ApplyBinaryOperator("*", c.Box(), d.Box(), error);
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
std::size_t WrapIndex(double index, std::size_t size) {
  if (std::isnan(index)) return 0;
  // The remainder is exact, however large the number.
  const auto length = static_cast<double>(size);
  const double rounded = std::round(index);
  if (rounded >= 0 && rounded < length) return static_cast<std::size_t>(rounded);
  const double remainder = std::fmod(rounded, length);
  return static_cast<std::size_t>(remainder < 0 ? remainder + length : remainder);
}

}  // namespace

s_refptr<Symbol> ScaleFromLeft(State& state, const s_refptr<Symbol>& scalar,
                               const s_refptr<Symbol>& vector, s_str& error) {
  const Elements& elements = ElementsOf(vector);
  const BinaryOnNumbers on_numbers = FindOnNumbers(state, "*");
  if (on_numbers && elements.AreNumbers()) {
    const double number = NumberOf(*scalar);
    const double* const a = elements.GetNumbers().data();
    return MakeNumbers(state, elements.GetSize(),
                       [&](std::size_t i) { return on_numbers(number, a[i]); });
  }
  return MakeElements(state, elements.GetSize(), [&](std::size_t i) {
    return state.ApplyBinaryOperator("*", scalar, GetObject(elements, i), error);
  });
}

s_refptr<Symbol> ScaleFromRight(State& state, const s_refptr<Symbol>& vector,
                                const s_refptr<Symbol>& scalar, s_str& error) {
  const Elements& elements = ElementsOf(vector);
  const BinaryOnNumbers on_numbers = FindOnNumbers(state, "*");
  if (on_numbers && elements.AreNumbers()) {
    const double number = NumberOf(*scalar);
    const double* const a = elements.GetNumbers().data();
    return MakeNumbers(state, elements.GetSize(),
                       [&](std::size_t i) { return on_numbers(a[i], number); });
  }
  return MakeElements(state, elements.GetSize(), [&](std::size_t i) {
    return state.ApplyBinaryOperator("*", GetObject(elements, i), scalar, error);
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
  const Elements& elements = ElementsOf(vector);
  const UnaryOnNumbers on_numbers =
      state.GetCore().registries.GetRightUnary().on_numbers[FindOperator("-")];
  if (on_numbers && elements.AreNumbers()) {
    const double* const a = elements.GetNumbers().data();
    return MakeNumbers(state, elements.GetSize(), [&](std::size_t i) { return on_numbers(a[i]); });
  }
  return MakeElements(state, elements.GetSize(), [&](std::size_t i) {
    return state.ApplyRightUnaryOperator("-", GetObject(elements, i), error);
  });
}

s_refptr<Symbol> CrossProduct(State& state, const s_refptr<Symbol>& left,
                              const s_refptr<Symbol>& right, s_str& error) {
  const Elements& a = ElementsOf(left);
  const Elements& b = ElementsOf(right);
  constexpr std::size_t kLength = 3;
  if (a.GetSize() != kLength || b.GetSize() != kLength) {
    AddError(error, messages::OnlyFor3Vectors());
    return {};
  }
  return MakeElements(state, kLength, [&](std::size_t i) {
    const std::size_t j = (i + 1) % kLength;
    const std::size_t k = (i + 2) % kLength;
    return DifferenceOfProducts(state, a[j], b[k], a[k], b[j], error);
  });
}

std::optional<Operand> SelectOperand(State& state, const Operand& vector, const Operand& index,
                                     s_str& error) {
  const Elements& elements = ElementsOf(vector.GetValue());
  if (elements.GetSize() == 0) {
    AddError(error, messages::CannotIndexEmpty());
    return {};
  }
  const double number = index.IsNumber() ? index.GetNumber() : NumberOf(*index.GetValue());
  if (std::isinf(number)) {
    if (!state.GetLimits().ends_the_endless) NeverReturn(state);  // GCOVR_EXCL_LINE: as above
    AddError(error, messages::EndlessIndex());
    return {};
  }
  const std::size_t place = WrapIndex(number, elements.GetSize());
  if (elements.AreNumbers()) return Operand(elements.GetNumbers()[place]);
  const Operand element = elements[place];
  return element.IsNumber() ? element : Operand::CopyOf(*element.GetValue());
}

s_refptr<Symbol> SelectElement(State& state, const s_refptr<Symbol>& vector,
                               const s_refptr<Symbol>& index, s_str& error) {
  Operand list;
  list.SetObject(vector);
  const std::optional<Operand> element = SelectOperand(state, list, Operand(index), error);
  return element ? element->Box() : s_refptr<Symbol>();
}

}  // namespace Quarn
